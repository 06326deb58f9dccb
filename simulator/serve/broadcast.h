#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

namespace mac_model {

/// Tells any number of listeners what a tree looks like and how it changes: first the whole of it, then
/// differences, as events of a text/event-stream. A listener that doesn't keep up is cut off; it comes back
/// and gets the whole tree. Any thread.
class Broadcast {
  public:
    static constexpr std::size_t listenersMax = 16;
    static constexpr std::size_t backlogBytesMax = 1024 * 1024;
    static constexpr std::size_t traceLengthMax = 300;

    class Listener {
      public:
        enum class Wait { Event, Quiet, Ended };

        /// Blocks until there is something to send, for at most `quietMax`.
        Wait next(std::string& event, std::chrono::milliseconds quietMax);

      private:
        friend class Broadcast;

        std::mutex mutex_;
        std::condition_variable changed_;
        std::deque<std::string> backlog_;
        std::size_t backlogBytes_ = 0;
        bool isEnded_ = false;

        void push(const std::string& event);
        void end();
    };

    /// Sends what has changed since the last tree, with new entries of the trace; nothing when nothing has.
    void publish(nlohmann::json state, std::vector<nlohmann::json> trace);
    /// Sends the whole tree, as another Mac has taken the old one's place. The trace begins anew.
    void publishAnew(nlohmann::json state);

    /// Null when there are too many listeners.
    std::shared_ptr<Listener> join();
    void leave(const std::shared_ptr<Listener>&);
    /// Ends all listeners, and lets nobody join any more.
    void close();

  private:
    std::string wholeEvent() const;
    void send(const std::string& event);

    std::mutex mutex_; // guards all below; taken before a listener's
    nlohmann::json state_ = nlohmann::json::object();
    std::deque<nlohmann::json> trace_;
    std::uint64_t sequence_ = 0;
    std::vector<std::shared_ptr<Listener>> listeners_;
    bool isClosed_ = false;
};

} // namespace mac_model
