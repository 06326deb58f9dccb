#pragma once

#include <optional>

namespace tavrin {

/// Numbers the requests to collapse, so that only the newest may act.
class CollapseRequestTracker {
  public:
    int begin() {
        pendingRequest_ = ++latestRequest_;
        return latestRequest_;
    }

    bool isPending(int request) const { return pendingRequest_ == request; }

    void finish(int request) {
        if (isPending(request)) pendingRequest_.reset();
    }

    void clear() { pendingRequest_.reset(); }

  private:
    int latestRequest_ = 0;
    std::optional<int> pendingRequest_;
};

} // namespace tavrin
