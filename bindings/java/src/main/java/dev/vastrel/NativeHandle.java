package dev.vastrel;

import java.lang.ref.Cleaner;
import java.util.function.LongConsumer;

/**
 * A native handle freed once: by close(), or by the Cleaner when its owner becomes
 * unreachable without being closed.
 */
final class NativeHandle implements AutoCloseable {
    private static final Cleaner CLEANER = Cleaner.create();

    /** Holds only the pointer and the free function, never the owner, so the owner can go. */
    private static final class Release implements Runnable {
        private final long pointer;
        private final LongConsumer free;

        Release(long pointer, LongConsumer free) {
            this.pointer = pointer;
            this.free = free;
        }

        @Override
        public void run() {
            free.accept(pointer);
        }
    }

    private final long pointer;
    private final Cleaner.Cleanable cleanable;
    private volatile boolean closed;

    NativeHandle(Object owner, long pointer, LongConsumer free) {
        this.pointer = pointer;
        this.cleanable = CLEANER.register(owner, new Release(pointer, free));
    }

    long pointer() {
        if (closed) {
            throw new IllegalStateException("used after close()");
        }
        return pointer;
    }

    @Override
    public void close() {
        closed = true;
        cleanable.clean();
    }
}
