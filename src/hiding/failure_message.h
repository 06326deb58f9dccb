#pragma once

#include "concurrency/signal.h"

#include <optional>
#include <string>
#include <utility>

namespace tavrin {

/// The last failure in one sentence for the user, which the configure window shows. Several parts of the
/// program fail; each tells it here.
class FailureMessage {
  public:
    const Published<std::optional<std::string>>& published() const { return message_; }

    void tell(std::string sentence) { message_.set(std::move(sentence)); }

    void clear() { message_.set(std::nullopt); }

  private:
    Published<std::optional<std::string>> message_;
};

} // namespace tavrin
