package dev.vastrel;

/** The gateway's answer. Any text may be null (absent); approvedAmount is plain decimal text. */
public final class GatewayInput {
    final String authCode;
    final String gatewayTransactionId;
    final String approvedAmount;

    public GatewayInput(String authCode, String gatewayTransactionId, String approvedAmount) {
        this.authCode = authCode;
        this.gatewayTransactionId = gatewayTransactionId;
        this.approvedAmount = approvedAmount;
    }
}
