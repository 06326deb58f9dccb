#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace tavrin {

/// Keeps a handler subscribed; dropping it unsubscribes. It may outlive what it subscribes to. Main thread.
class [[nodiscard]] Subscription {
  public:
    Subscription() = default;

    explicit Subscription(std::function<void()> unsubscribe) : unsubscribe_(std::move(unsubscribe)) {}

    Subscription(Subscription&& other) noexcept : unsubscribe_(std::exchange(other.unsubscribe_, nullptr)) {}

    Subscription& operator=(Subscription&& other) noexcept {
        if (this != &other) {
            cancel();
            unsubscribe_ = std::exchange(other.unsubscribe_, nullptr);
        }
        return *this;
    }

    ~Subscription() { cancel(); }

    void cancel() {
        if (auto unsubscribe = std::exchange(unsubscribe_, nullptr)) unsubscribe();
    }

    explicit operator bool() const { return unsubscribe_ != nullptr; }

  private:
    std::function<void()> unsubscribe_;
};

/// One for several: all of them end with it.
template <class... Subscriptions>
Subscription together(Subscriptions... subscriptions) {
    auto all = std::make_shared<std::vector<Subscription>>();
    (all->push_back(std::move(subscriptions)), ...);
    return Subscription([all] { all->clear(); });
}

/// Calls its handlers in the order of their subscription. A handler may subscribe, unsubscribe anyone and
/// destroy the signal: those unsubscribed are no longer called, those added are called from the next emission
/// on, and a destroyed signal calls nobody. Main thread.
template <class... Arguments>
class Signal {
  public:
    using Handler = std::function<void(Arguments...)>;

    Signal() = default;
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;

    Subscription subscribe(Handler handler) {
        auto entry = std::make_shared<Entry>(std::move(handler));
        entries_->push_back(entry);
        return Subscription([entries = std::weak_ptr(entries_), entry] {
            entry->isSubscribed = false;
            if (auto list = entries.lock()) std::erase(*list, entry);
        });
    }

    void emit(const Arguments&... arguments) const {
        emitWhile([] { return true; }, arguments...);
    }

    /// Asks before each handler whether to go on.
    template <class Condition>
    void emitWhile(Condition goesOn, const Arguments&... arguments) const {
        const std::weak_ptr<Entries> alive = entries_;
        // The snapshot also keeps a handler that unsubscribes itself from destroying the function it runs in.
        const auto snapshot = *entries_;
        for (const auto& entry : snapshot) {
            if (alive.expired() || !goesOn()) return;
            if (entry->isSubscribed) entry->handler(arguments...);
        }
    }

    bool hasSubscribers() const { return !entries_->empty(); }

  private:
    struct Entry {
        explicit Entry(Handler subscriber) : handler(std::move(subscriber)) {}

        Handler handler;
        bool isSubscribed = true;
    };

    using Entries = std::vector<std::shared_ptr<Entry>>;
    std::shared_ptr<Entries> entries_ = std::make_shared<Entries>();
};

/// A value that tells its subscribers when it has changed. Setting an equal value tells nobody; a handler
/// that sets another value supersedes the change it hears of, so that the last value anybody hears is the
/// present one. Main thread.
template <class T>
class Published {
  public:
    explicit Published(T value = T{}) : value_(std::move(value)) {}

    const T& get() const { return value_; }

    void set(T value) {
        if (value_ == value) return;
        value_ = std::move(value);
        const auto change = ++changes_;
        const T told = value_;
        changed_.emitWhile([&] { return changes_ == change; }, told);
    }

    /// The handler hears changes from now on, not the present value.
    Subscription subscribe(std::function<void(const T&)> handler) const {
        return changed_.subscribe(std::move(handler));
    }

  private:
    T value_;
    std::uint64_t changes_ = 0;
    mutable Signal<T> changed_; // to listen changes nothing
};

} // namespace tavrin
