/* SPDX-License-Identifier: MIT */
/* Preloaded before the C library: the clocks of the process run faster than those of the computer, by the whole number
   in the environment variable ORIM_CLOCK_FACTOR (600 without one), and what waits for a time waits shorter by as much.
   Processor time and CLOCK_MONOTONIC_RAW stay what they are. */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <linux/futex.h>
#include <poll.h>
#include <pthread.h>
#include <semaphore.h>
#include <signal.h>
#include <stdarg.h>
#include <stdlib.h>
#include <sys/epoll.h>
#include <sys/select.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <time.h>
#include <unistd.h>

#define PUBLIC __attribute__((visibility("default")))
#define SECOND 1000000000LL

#define REAL(type, name, arguments)                                                                                    \
    static type(*real) arguments;                                                                                      \
    if (!real)                                                                                                         \
    *(void **)&real = dlsym(RTLD_NEXT, #name)

static long long s_factor = 600;
static long long s_monotonic, s_realtime; /* ns, when the process began */

static long long nanoseconds(struct timespec const * time) { return (long long)time->tv_sec * SECOND + time->tv_nsec; }

static struct timespec * spec_of(struct timespec * time, long long value)
{
    value = value > 0 ? value : 0;
    time->tv_sec = (time_t)(value / SECOND);
    time->tv_nsec = (long)(value % SECOND);
    return time;
}

static int read_clock(clockid_t clock, struct timespec * time)
{
    REAL(int, clock_gettime, (clockid_t, struct timespec *));
    return real(clock, time);
}

static long long now_of(clockid_t clock)
{
    struct timespec time = { 0, 0 };
    read_clock(clock, &time);
    return nanoseconds(&time);
}

__attribute__((constructor)) static void begin(void)
{
    char const * const factor = getenv("ORIM_CLOCK_FACTOR");
    s_factor = factor && atoll(factor) > 0 ? atoll(factor) : s_factor;
    s_monotonic = now_of(CLOCK_MONOTONIC);
    s_realtime = now_of(CLOCK_REALTIME);
}

/* Tells that this is loaded. Returns how many times faster the clocks run. */
PUBLIC long long orim_fast_clock(void) { return s_factor; }

static int is_wall(clockid_t clock) { return clock == CLOCK_REALTIME || clock == CLOCK_REALTIME_COARSE; }

static int runs_fast(clockid_t clock)
{
    return is_wall(clock) || clock == CLOCK_MONOTONIC || clock == CLOCK_MONOTONIC_COARSE || clock == CLOCK_BOOTTIME;
}

static long long begin_of(clockid_t clock) { return is_wall(clock) ? s_realtime : s_monotonic; }

static long long to_fast(clockid_t clock, long long time)
{
    return begin_of(clock) + (time - begin_of(clock)) * s_factor;
}

static long long to_slow(clockid_t clock, long long time)
{
    return begin_of(clock) + (time - begin_of(clock)) / s_factor;
}

static struct timespec const * shorter(struct timespec const * span, struct timespec * room)
{
    return span ? spec_of(room, nanoseconds(span) / s_factor) : NULL;
}

/* A point in time that a caller took from a clock that runs fast. */
static struct timespec const * point(clockid_t clock, struct timespec const * time, struct timespec * room)
{
    return time && runs_fast(clock) ? spec_of(room, to_slow(clock, nanoseconds(time))) : time;
}

/* Where a call does not tell which clock its point in time is of: the steady one starts with the computer. */
static clockid_t clock_of(struct timespec const * time)
{
    return time && nanoseconds(time) > s_realtime / 2 ? CLOCK_REALTIME : CLOCK_MONOTONIC;
}

/* clocks */

PUBLIC int clock_gettime(clockid_t clock, struct timespec * time)
{
    int const result = read_clock(clock, time);
    if (result == 0 && runs_fast(clock))
        spec_of(time, to_fast(clock, nanoseconds(time)));
    return result;
}

PUBLIC int gettimeofday(struct timeval * restrict time, void * restrict zone)
{
    struct timespec now;
    (void)zone;
    clock_gettime(CLOCK_REALTIME, &now);
    time->tv_sec = now.tv_sec;
    time->tv_usec = now.tv_nsec / 1000;
    return 0;
}

PUBLIC time_t time(time_t * target)
{
    struct timespec now;
    clock_gettime(CLOCK_REALTIME, &now);
    if (target)
        *target = now.tv_sec;
    return now.tv_sec;
}

/* waits for a length of time */

PUBLIC int ppoll(struct pollfd * files, nfds_t count, struct timespec const * span, sigset_t const * mask)
{
    struct timespec room;
    REAL(int, ppoll, (struct pollfd *, nfds_t, struct timespec const *, sigset_t const *));
    return real(files, count, shorter(span, &room), mask);
}

PUBLIC int poll(struct pollfd * files, nfds_t count, int milliseconds)
{
    struct timespec span;
    spec_of(&span, milliseconds * 1000000LL);
    return ppoll(files, count, milliseconds < 0 ? NULL : &span, NULL);
}

PUBLIC int pselect(int count, fd_set * restrict in, fd_set * restrict out, fd_set * restrict other,
                   struct timespec const * restrict span, sigset_t const * restrict mask)
{
    struct timespec room;
    REAL(int, pselect, (int, fd_set *, fd_set *, fd_set *, struct timespec const *, sigset_t const *));
    return real(count, in, out, other, shorter(span, &room), mask);
}

PUBLIC int select(int count, fd_set * restrict in, fd_set * restrict out, fd_set * restrict other,
                  struct timeval * restrict span)
{
    struct timespec room;
    if (span)
        spec_of(&room, (long long)span->tv_sec * SECOND + span->tv_usec * 1000LL);
    return pselect(count, in, out, other, span ? &room : NULL, NULL);
}

PUBLIC int epoll_wait(int handle, struct epoll_event * events, int count, int milliseconds)
{
    REAL(int, epoll_wait, (int, struct epoll_event *, int, int));
    long long const slow = (milliseconds + s_factor - 1) / s_factor; /* at least a millisecond */
    return real(handle, events, count, milliseconds < 0 ? -1 : (int)slow);
}

PUBLIC int clock_nanosleep(clockid_t clock, int flags, struct timespec const * time, struct timespec * left)
{
    struct timespec room;
    int result;
    REAL(int, clock_nanosleep, (clockid_t, int, struct timespec const *, struct timespec *));
    if ((flags & TIMER_ABSTIME) != 0)
        return real(clock, flags, point(clock, time, &room), left);
    result = real(clock, flags, shorter(time, &room), left);
    if (result != 0 && left)
        spec_of(left, nanoseconds(left) * s_factor);
    return result;
}

PUBLIC int nanosleep(struct timespec const * span, struct timespec * left)
{
    int const code = clock_nanosleep(CLOCK_MONOTONIC, 0, span, left);
    return code == 0 ? 0 : -1;
}

PUBLIC int usleep(useconds_t microseconds)
{
    struct timespec span;
    return nanosleep(spec_of(&span, microseconds * 1000LL), NULL);
}

PUBLIC unsigned int sleep(unsigned int seconds)
{
    struct timespec span;
    nanosleep(spec_of(&span, seconds * SECOND), NULL);
    return 0;
}

/* waits for a point in time */

PUBLIC int pthread_cond_timedwait(pthread_cond_t * restrict condition, pthread_mutex_t * restrict mutex,
                                  struct timespec const * restrict time)
{
    struct timespec room;
    REAL(int, pthread_cond_timedwait, (pthread_cond_t *, pthread_mutex_t *, struct timespec const *));
    return real(condition, mutex, point(clock_of(time), time, &room));
}

PUBLIC int pthread_cond_clockwait(pthread_cond_t * restrict condition, pthread_mutex_t * restrict mutex,
                                  clockid_t clock, struct timespec const * restrict time)
{
    struct timespec room;
    REAL(int, pthread_cond_clockwait, (pthread_cond_t *, pthread_mutex_t *, clockid_t, struct timespec const *));
    return real(condition, mutex, clock, point(clock, time, &room));
}

PUBLIC int pthread_mutex_timedlock(pthread_mutex_t * restrict mutex, struct timespec const * restrict time)
{
    struct timespec room;
    REAL(int, pthread_mutex_timedlock, (pthread_mutex_t *, struct timespec const *));
    return real(mutex, point(CLOCK_REALTIME, time, &room));
}

PUBLIC int sem_timedwait(sem_t * restrict semaphore, struct timespec const * restrict time)
{
    struct timespec room;
    REAL(int, sem_timedwait, (sem_t *, struct timespec const *));
    return real(semaphore, point(CLOCK_REALTIME, time, &room));
}

/* What is called by number: the waits of Qt's mutexes, and clocks. */
PUBLIC long syscall(long number, ...)
{
    struct timespec room;
    long values[6];
    va_list rest;
    REAL(long, syscall, (long, ...));
    va_start(rest, number);
    for (int i = 0; i < 6; ++i)
        values[i] = va_arg(rest, long);
    va_end(rest);
    if (number == SYS_clock_gettime)
        return clock_gettime((clockid_t)values[0], (struct timespec *)values[1]);
    if (number == SYS_futex && values[3] != 0) {
        struct timespec const * const time = (struct timespec const *)values[3];
        long const order = values[1] & FUTEX_CMD_MASK;
        clockid_t const clock = (values[1] & FUTEX_CLOCK_REALTIME) != 0 ? CLOCK_REALTIME : CLOCK_MONOTONIC;
        if (order == FUTEX_WAIT)
            values[3] = (long)shorter(time, &room);
        else if (order == FUTEX_WAIT_BITSET)
            values[3] = (long)point(clock, time, &room);
    }
    return real(number, values[0], values[1], values[2], values[3], values[4], values[5]);
}
