// Grand Central Dispatch as far as it is used: serial queues, each a thread that lives as long as the
// process.
#include <Block.h>
#import <Foundation/Foundation.h>
#include <condition_variable>
#include <deque>
#include <dispatch/dispatch.h>
#include <latch>
#include <mutex>
#include <thread>
#include <vector>

struct dispatch_queue_s {
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<void (^)(void)> blocks;
    std::thread thread{[this] { run(); }};

    void add(void (^block)(void)) {
        const std::lock_guard lock(mutex);
        blocks.push_back(Block_copy(block));
        changed.notify_one();
    }

    void (^next())(void) {
        std::unique_lock lock(mutex);
        changed.wait(lock, [this] { return !blocks.empty(); });
        void (^block)(void) = blocks.front();
        blocks.pop_front();
        return block;
    }

    [[noreturn]] void run() {
        GSRegisterCurrentThread();
        for (;;) {
            void (^block)(void) = next();
            block();
            Block_release(block);
        }
    }
};

extern "C" {

dispatch_queue_attr_t dispatch_queue_attr_make_with_qos_class(dispatch_queue_attr_t, unsigned, int) {
    return nullptr;
}

dispatch_queue_t dispatch_queue_create(const char*, dispatch_queue_attr_t) { return new dispatch_queue_s; }

void dispatch_async(dispatch_queue_t queue, void (^block)(void)) { queue->add(block); }

void dispatch_sync(dispatch_queue_t queue, void (^block)(void)) {
    std::latch done(1);
    auto* told = &done;
    queue->add(^{
        block();
        told->count_down();
    });
    done.wait();
}

// Each share on a thread of its own: in the order of the shares nobody could see a race.
void dispatch_apply(std::size_t count, dispatch_queue_t, void (^block)(std::size_t)) {
    std::vector<std::jthread> shares;
    for (std::size_t share = 0; share < count; ++share)
        shares.emplace_back([=] {
            GSRegisterCurrentThread();
            block(share);
            GSUnregisterCurrentThread();
        });
}
}
