#pragma once

#include "platform/presentation.h"
#include "seam/program_surface.h"
#include "vocabulary/vocabulary.h"

#include <cstddef>
#include <functional>

namespace mac_model {

/// An alert of the program. While it is on the screen, the program's other surfaces, its status items and its
/// menus take no presses; work and hot keys still reach the program.
class ProgramAlert final : public tavrin::Alert {
  public:
    ProgramAlert(ProgramPresentation&, AlertQuestion, std::function<void(std::size_t)> onAnswer,
                 ProgramCallbacks);

    void bringToFront() override { surface_.bringToFront(); }

  private:
    void layOut(Surface&, const View& content) const;
    View content(const AlertQuestion&);
    tavrin::IconOfApplication iconFor(const AlertQuestion&) const;
    void answer(std::size_t button);

    ProgramPresentation& presentation_;
    std::function<void(std::size_t)> onAnswer_;
    ProgramSurface surface_;
};

} // namespace mac_model
