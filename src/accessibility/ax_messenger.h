#pragma once

#include "accessibility/attributes.h"
#include "concurrency/task.h"
#include "concurrency/waits.h"
#include "platform/accessibility.h"

#include <expected>
#include <optional>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace tavrin {

/// Sends messages to other applications from the main thread. They go out on a queue of the messenger's
/// owner, one piece of work at a time, so that the main thread never waits for an application that doesn't
/// answer. A job that is cancelled stops waiting at once and gets `Abandoned`; work that has begun on the
/// queue is told so and ends early. Cheap to copy. Accessibility and the queue outlive the messenger.
class AxMessenger {
  public:
    template <class T>
    using Answer = std::expected<T, ReadFailure>;

    AxMessenger(Accessibility& accessibility, SerialQueue& queue)
        : accessibility_(&accessibility)
        , queue_(&queue) {}

    /// Runs the question on the queue and gives its answer. The question takes `Accessibility&` and `const
    /// AbandonFlag&`, returns an `Answer`, and owns all else that it uses.
    template <class Question>
    Task<std::invoke_result_t<Question&, Accessibility&, const AbandonFlag&>> ask(Question question) const {
        auto answer =
            co_await runOn(*queue_, [accessibility = accessibility_,
                                     question = std::move(question)](const AbandonFlag& abandoned) mutable {
                return question(*accessibility, abandoned);
            });
        if (!answer) co_return std::unexpected(ReadFailure::Abandoned);
        co_return std::move(*answer);
    }

    template <class T>
    Task<Answer<std::optional<T>>> readOne(AccessibilityElement element, std::string_view name,
                                           Seconds timeout) const {
        return ask(
            [element = std::move(element), name, timeout](Accessibility& accessibility, const AbandonFlag&) {
                return tavrin::readOne<T>(accessibility, element, name, timeout);
            });
    }

    /// Without an answer, or when the job was cancelled, the error is `CannotComplete`: the action may have
    /// happened.
    Task<std::expected<void, AccessibilityError>> perform(AccessibilityElement element,
                                                          std::string_view action, Seconds timeout) const;

    /// Likewise; the process may have taken the value.
    Task<std::expected<void, AccessibilityError>>
    setFlag(AccessibilityElement element, std::string_view attribute, bool value, Seconds timeout) const;

  private:
    Accessibility* accessibility_;
    SerialQueue* queue_;
};

} // namespace tavrin
