package dev.vastrel;

import java.util.concurrent.ConcurrentHashMap;

/** Tag names from the library's dictionary, asked for once per tag and kernel. */
final class Names {
    private static final String NONE = "";
    private static final ConcurrentHashMap<Long, String> CACHE = new ConcurrentHashMap<>();

    private Names() {}

    /** The name of tag in the kernel of scheme, or null when the dictionary has none. */
    static String of(int tag, int scheme) {
        Long key = ((long) scheme << 32) | (tag & 0xFFFFFFFFL);
        String name = CACHE.get(key);
        if (name == null) {
            byte[] bytes = NativeLib.tagNameInScheme(tag, scheme);
            name = bytes == null ? NONE : Utf8.string(bytes);
            CACHE.putIfAbsent(key, name);
        }
        return name.isEmpty() ? null : name;
    }
}
