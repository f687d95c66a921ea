package dev.vastrel;

/** The gateway's answer. Any text may be null; approvedAmount is plain decimal text, "12.50". */
public record GatewayInput(String authCode, String gatewayTransactionId, String approvedAmount) {}
