/* SPDX-License-Identifier: MIT */
/* Preloaded before the C library: makes the k-th call that touches a folder fail. Counted are the calls named below,
   when they bear a path below the folder or a handle that was opened there while armed. */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <signal.h>
#include <stdarg.h>
#include <stdio.h>
#include <string.h>
#include <sys/types.h>
#include <unistd.h>

#define PUBLIC __attribute__((visibility("default")))
#define HANDLES 1024

enum
{
    eNone,
    eNoSpace,
    eIo,
    eQuota,
    eInterrupted,
    eShortWrite,
    eKillBefore,
    eKillAfter
};

static char s_folder[4096];
static int s_armed, s_at, s_kind, s_persistent, s_count, s_fired;
static char s_ours[HANDLES];
static char s_trace[4096];

PUBLIC void orim_fault_arm(char const * folder, int at, int kind, int persistent)
{
    snprintf(s_folder, sizeof s_folder, "%s", folder);
    memset(s_ours, 0, sizeof s_ours);
    s_trace[0] = 0;
    s_at = at;
    s_kind = kind;
    s_persistent = persistent;
    s_count = s_fired = 0;
    s_armed = 1;
}

/* Ends the faults. Returns how many calls failed. */
PUBLIC int orim_fault_disarm(void)
{
    s_armed = 0;
    return s_fired;
}

/* Names of the calls counted since arming, each behind a blank. */
PUBLIC char const * orim_fault_trace(void) { return s_trace; }

static int below(char const * path) { return s_armed && strncmp(path, s_folder, strlen(s_folder)) == 0; }

static int ours(int handle) { return s_armed && handle >= 0 && handle < HANDLES && s_ours[handle]; }

/* Counts a call; whether it is to fail. */
static int strikes(char const * name)
{
    size_t const used = strlen(s_trace);
    ++s_count;
    snprintf(s_trace + used, sizeof s_trace - used, " %s", name);
    if (s_kind == eNone || s_count < s_at || (s_count > s_at && !s_persistent))
        return 0;
    if (s_kind == eInterrupted && s_fired >= 3)
        return 0; /* signals end at some time, and callers repeat until then */
    if (s_kind == eShortWrite && strcmp(name, "write") != 0)
        return 0;
    ++s_fired;
    if (s_kind == eKillBefore)
        kill(getpid(), SIGKILL);
    return 1;
}

static int fails(void)
{
    static int const codes[] = { 0, ENOSPC, EIO, EDQUOT, EINTR };
    if (s_kind > eInterrupted)
        return 0;
    errno = codes[s_kind];
    return 1;
}

static void after(int struck)
{
    if (struck && s_kind == eKillAfter)
        kill(getpid(), SIGKILL);
}

#define REAL(type, name, arguments)                                                                                    \
    static type(*real) arguments;                                                                                      \
    if (!real)                                                                                                         \
    *(void **)&real = dlsym(RTLD_NEXT, #name)

static int opened(char const * path, int flags, mode_t mode, int (*real)(char const *, int, ...))
{
    int struck = 0, handle;
    if (below(path)) {
        struck = strikes("open");
        if (struck && fails())
            return -1;
    }
    handle = real(path, flags, mode);
    if (handle >= 0 && handle < HANDLES)
        s_ours[handle] = (char)below(path);
    after(struck);
    return handle;
}

static mode_t mode_of(int flags, va_list rest)
{
    return (flags & O_CREAT) || (flags & O_TMPFILE) == O_TMPFILE ? va_arg(rest, mode_t) : 0;
}

PUBLIC int open(char const * path, int flags, ...)
{
    va_list rest;
    mode_t mode;
    REAL(int, open, (char const *, int, ...));
    va_start(rest, flags);
    mode = mode_of(flags, rest);
    va_end(rest);
    return opened(path, flags, mode, real);
}

PUBLIC int open64(char const * path, int flags, ...)
{
    va_list rest;
    mode_t mode;
    REAL(int, open64, (char const *, int, ...));
    va_start(rest, flags);
    mode = mode_of(flags, rest);
    va_end(rest);
    return opened(path, flags, mode, real);
}

PUBLIC ssize_t write(int handle, void const * bytes, size_t size)
{
    int struck = 0;
    ssize_t written;
    REAL(ssize_t, write, (int, void const *, size_t));
    if (ours(handle)) {
        struck = strikes("write");
        if (struck && fails())
            return -1;
        if (struck && s_kind == eShortWrite && size > 1)
            size /= 2;
    }
    written = real(handle, bytes, size);
    after(struck);
    return written;
}

PUBLIC int close(int handle)
{
    int struck = 0, result;
    REAL(int, close, (int));
    if (ours(handle)) {
        struck = strikes("close");
        s_ours[handle] = 0;
    }
    result = real(handle); /* closed in any case, as the kernel does */
    after(struck);
    return struck && fails() ? -1 : result;
}

#define BY_HANDLE(name)                                                                                                \
    PUBLIC int name(int handle)                                                                                        \
    {                                                                                                                  \
        int struck = 0, result;                                                                                        \
        REAL(int, name, (int));                                                                                        \
        if (ours(handle)) {                                                                                            \
            struck = strikes(#name);                                                                                   \
            if (struck && fails())                                                                                     \
                return -1;                                                                                             \
        }                                                                                                              \
        result = real(handle);                                                                                         \
        after(struck);                                                                                                 \
        return result;                                                                                                 \
    }

BY_HANDLE(fdatasync)
BY_HANDLE(fsync)

PUBLIC int fchmod(int handle, mode_t mode)
{
    int struck = 0, result;
    REAL(int, fchmod, (int, mode_t));
    if (ours(handle)) {
        struck = strikes("fchmod");
        if (struck && fails())
            return -1;
    }
    result = real(handle, mode);
    after(struck);
    return result;
}

PUBLIC int flock(int handle, int operation)
{
    int struck = 0, result;
    REAL(int, flock, (int, int));
    if (ours(handle)) {
        struck = strikes("flock");
        if (struck && fails())
            return -1;
    }
    result = real(handle, operation);
    after(struck);
    return result;
}

PUBLIC int rename(char const * from, char const * to)
{
    int struck = 0, result;
    REAL(int, rename, (char const *, char const *));
    if (below(to)) {
        struck = strikes("rename");
        if (struck && fails())
            return -1;
    }
    result = real(from, to);
    after(struck);
    return result;
}

PUBLIC int linkat(int fromFolder, char const * from, int toFolder, char const * to, int flags)
{
    int struck = 0, result;
    REAL(int, linkat, (int, char const *, int, char const *, int));
    if (below(to)) {
        struck = strikes("linkat");
        if (struck && fails())
            return -1;
    }
    result = real(fromFolder, from, toFolder, to, flags);
    after(struck);
    return result;
}

PUBLIC int unlink(char const * path)
{
    int struck = 0, result;
    REAL(int, unlink, (char const *));
    if (below(path)) {
        struck = strikes("unlink");
        if (struck && fails())
            return -1;
    }
    result = real(path);
    after(struck);
    return result;
}
