// What every file of a program for the Mac finds in the C library there. Included before everything else.
#pragma once

#include <pthread.h>
#include <stdint.h>
#include <time.h>
#include <unistd.h>

#ifdef __cplusplus
extern "C" {
#endif

static inline int pthread_main_np(void) { return getpid() == gettid(); }

// The program's own process, which the Mac that answers may know by another number.
pid_t tavrinProcess(void);
#define getpid tavrinProcess

#define CLOCK_UPTIME_RAW 8

static inline uint64_t clock_gettime_nsec_np(int clock) {
    struct timespec time;
    (void)clock;
    clock_gettime(CLOCK_MONOTONIC, &time);
    return (uint64_t)time.tv_sec * 1000000000u + (uint64_t)time.tv_nsec;
}

#ifdef __cplusplus
}
#endif

// Frameworks of Apple's that are looked up by their path are never there, but stood in for.
#define dlopen tavrinOpened

// Before the stand-ins for the C frameworks, which take their base types from it here.
#ifdef __OBJC__
#import <Foundation/Foundation.h>
#endif
