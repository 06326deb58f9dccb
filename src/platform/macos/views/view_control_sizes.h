#pragma once

#include "platform/macos/support/apple.h"
#include "views/view_layout.h"

#include <cstddef>
#include <map>
#include <string>
#include <utility>

namespace tavrin::macos {

/// Measures with the controls that are shown, one of each kind that no window holds.
class MacControlSizes final : public ControlSizes {
  public:
    Size sizeOf(const View& control, double width) const override;

  private:
    Size sizeOfText(const View& view, const kinds::Text& text, double width) const;
    NSView* dressed(const View& control) const;

    mutable std::map<std::size_t, NSView*> controls_; // by the kind's place among the kinds
    /// Sizes of texts on one line: most texts are measured many times and never wrap.
    mutable std::map<std::pair<TextStyle, std::string>, Size> lines_;
};

} // namespace tavrin::macos
