#pragma once

#include "desktop/desktop_file.h"
#include "desktop/object_reader.h"
#include "input/pointer.h"
#include "vocabulary/vocabulary.h"

#include <expected>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

namespace mac_model {

/// The result of a command: the members of its reply, or one sentence.
using Outcome = std::expected<nlohmann::json, std::string>;

/// The members of one command. A command reads every member that it knows, asks `problem`, and only then
/// acts.
class Arguments {
  public:
    explicit Arguments(const nlohmann::json& command);

    /// The command's name; it was read already.
    const std::string& name() const { return name_; }

    ObjectReader& reader() { return reader_; }

    std::optional<Point> point(std::string_view key, Need = Need::Optional);
    std::vector<Modifier> modifiers();
    MouseButton button();

    /// A sentence about the first thing wrong: a member that is missing, unknown or of the wrong kind.
    std::optional<std::string> problem();

    /// A sentence about this command.
    std::string sentence(const std::string& problem) const;

  private:
    FirstFault faults_;
    ObjectReader reader_;
    std::string name_;
};

} // namespace mac_model
