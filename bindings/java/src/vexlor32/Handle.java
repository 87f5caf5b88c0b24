// SPDX-License-Identifier: MIT
package vexlor32;

/** What is open until it is closed: best in a try statement, which closes it. */
public abstract class Handle implements AutoCloseable {
    private final long none;
    private long handle;

    Handle(long handle, long none) {
        this.handle = handle;
        this.none = none;
    }

    /**
     * The number by which the exact functions know it.
     *
     * @return the handle
     * @throws IllegalStateException if it is closed
     */
    public final long handle() {
        if (handle == none) throw new IllegalStateException("the " + getClass().getSimpleName() + " is closed");
        return handle;
    }

    /** Closes it unless it is closed; {@code tryClose} says whether that worked. */
    @Override
    public final void close() {
        if (handle != none) end();
    }

    abstract void end();

    final void forget() {
        handle = none;
    }
}
