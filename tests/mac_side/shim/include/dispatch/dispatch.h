#pragma once
#include <stddef.h>
#ifdef __cplusplus
extern "C" {
#endif
typedef struct dispatch_queue_s* dispatch_queue_t;
typedef const struct dispatch_queue_attr_s* dispatch_queue_attr_t;
#define DISPATCH_QUEUE_SERIAL ((dispatch_queue_attr_t)0)
#define DISPATCH_APPLY_AUTO ((dispatch_queue_t)0)

enum { QOS_CLASS_USER_INITIATED = 0x19 };

dispatch_queue_attr_t dispatch_queue_attr_make_with_qos_class(dispatch_queue_attr_t, unsigned, int);
dispatch_queue_t dispatch_queue_create(const char* label, dispatch_queue_attr_t);
void dispatch_async(dispatch_queue_t, void (^block)(void));
void dispatch_sync(dispatch_queue_t, void (^block)(void));
void dispatch_apply(size_t count, dispatch_queue_t, void (^block)(size_t));
#ifdef __cplusplus
}
#endif
