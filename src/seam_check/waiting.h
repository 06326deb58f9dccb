#pragma once

#include "concurrency/scheduler.h"
#include "concurrency/task.h"
#include "concurrency/waits.h"
#include "platform/platform.h"

#include <functional>
#include <memory>
#include <optional>

namespace tavrin::seam_check {

/// Looks at the condition again and again until it is met; false when it isn't within `limit`, or when the
/// job was cancelled. What the condition refers to stays alive while it is awaited.
Task<bool> comesTrue(Platform platform, std::function<bool()> condition, Seconds limit);

/// Runs `ask` on a queue, off the main thread, and gives its answer; none when the job was cancelled.
/// Messages to other processes belong there, because they block their thread.
template <class Ask>
Task<std::optional<std::invoke_result_t<Ask&>>> offTheMainThread(Platform platform, Ask ask) {
    const auto queue = platform.scheduler.makeSerialQueue("org.tavrin.seam-check");
    co_return co_await runOn(*queue, [ask = std::move(ask)](const AbandonFlag&) mutable { return ask(); });
}

} // namespace tavrin::seam_check
