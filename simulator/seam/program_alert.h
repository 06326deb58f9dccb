#pragma once

#include "platform/presentation.h"
#include "seam/program_surface.h"
#include "vocabulary/vocabulary.h"

#include <cstddef>
#include <functional>

namespace mac_model {

/// An alert of the program. It doesn't keep presses from the program's other surfaces.
class ProgramAlert final : public tavrin::Alert {
  public:
    ProgramAlert(ProgramPresentation&, AlertQuestion, std::function<void(std::size_t)> onAnswer,
                 ProgramCallbacks);

    void bringToFront() override { surface_.bringToFront(); }

  private:
    void layOut(Surface&, const View& content) const;
    View content(const AlertQuestion&);
    void answer(std::size_t button);

    ProgramPresentation& presentation_;
    std::function<void(std::size_t)> onAnswer_;
    ProgramSurface surface_;
};

} // namespace mac_model
