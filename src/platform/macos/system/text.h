#pragma once

#include "platform/text.h"

namespace tavrin::macos {

class MacText final : public Text {
  public:
    std::strong_ordering compareIgnoringCase(std::string_view left, std::string_view right) const override;
    std::string foldingCaseAndDiacritics(std::string_view text) const override;
    std::string foldingCaseDiacriticsAndWidth(std::string_view text) const override;
    std::string lowercased(std::string_view text) const override;
    std::string capitalized(std::string_view text) const override;
    std::string keepingAlphanumerics(std::string_view text) const override;
    std::string trimmed(std::string_view text) const override;
};

} // namespace tavrin::macos
