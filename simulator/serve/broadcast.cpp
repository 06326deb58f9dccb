#include "serve/broadcast.h"

#include "serve/tree_difference.h"

#include <algorithm>
#include <utility>

namespace mac_model {

using nlohmann::json;

namespace {

std::string eventOf(const char* name, const json& message) {
    return std::string("event: ") + name +
           "\ndata: " + message.dump(-1, ' ', false, json::error_handler_t::replace) + "\n\n";
}

} // namespace

Broadcast::Listener::Wait Broadcast::Listener::next(std::string& event, std::chrono::milliseconds quietMax) {
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, quietMax, [this] { return isEnded_ || !backlog_.empty(); });
    if (isEnded_) return Wait::Ended;
    if (backlog_.empty()) return Wait::Quiet;
    event = std::move(backlog_.front());
    backlog_.pop_front();
    backlogBytes_ -= event.size();
    return Wait::Event;
}

void Broadcast::Listener::push(const std::string& event) {
    {
        std::lock_guard lock(mutex_);
        backlogBytes_ += event.size();
        backlog_.push_back(event);
        // The first event may be a large tree; whoever hasn't taken it by the next one is slow.
        if (backlogBytes_ > backlogBytesMax && backlog_.size() > 1) isEnded_ = true;
    }
    changed_.notify_all();
}

void Broadcast::Listener::end() {
    {
        std::lock_guard lock(mutex_);
        isEnded_ = true;
    }
    changed_.notify_all();
}

void Broadcast::publish(json state, std::vector<json> trace) {
    std::lock_guard lock(mutex_);
    auto difference = differenceOf(state_, state);
    if (difference.empty() && trace.empty()) return;
    state_ = std::move(state);
    for (const auto& entry : trace) trace_.push_back(entry);
    while (trace_.size() > traceLengthMax) trace_.pop_front();
    json message{{"sequence", ++sequence_}, {"difference", std::move(difference)}};
    if (!trace.empty()) message["trace"] = std::move(trace);
    send(eventOf("change", message));
}

void Broadcast::publishAnew(json state) {
    std::lock_guard lock(mutex_);
    state_ = std::move(state);
    trace_.clear();
    ++sequence_;
    send(wholeEvent());
}

std::shared_ptr<Broadcast::Listener> Broadcast::join() {
    std::lock_guard lock(mutex_);
    if (isClosed_ || listeners_.size() >= listenersMax) return nullptr;
    auto listener = std::make_shared<Listener>();
    listener->push(wholeEvent());
    listeners_.push_back(listener);
    return listener;
}

void Broadcast::leave(const std::shared_ptr<Listener>& listener) {
    std::lock_guard lock(mutex_);
    std::erase(listeners_, listener);
}

void Broadcast::close() {
    std::lock_guard lock(mutex_);
    isClosed_ = true;
    for (const auto& listener : listeners_) listener->end();
}

std::string Broadcast::wholeEvent() const {
    return eventOf("whole", {{"sequence", sequence_}, {"state", state_}, {"trace", trace_}});
}

void Broadcast::send(const std::string& event) {
    for (const auto& listener : listeners_) listener->push(event);
}

} // namespace mac_model
