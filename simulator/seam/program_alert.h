#pragma once

#include "platform/presentation.h"
#include "seam/program_callbacks.h"
#include "seam/program_presentation.h"

#include <cstddef>
#include <functional>

namespace mac_model {

/// An alert of the program. It doesn't keep presses from the program's other surfaces.
class ProgramAlert final : public tavrin::Alert {
  public:
    ProgramAlert(ProgramPresentation&, tavrin::AlertQuestion, std::function<void(std::size_t)> onAnswer,
                 ProgramCallbacks);

    ~ProgramAlert() override { presentation_.stack_.remove(surface_); }

    ProgramAlert(const ProgramAlert&) = delete;
    ProgramAlert& operator=(const ProgramAlert&) = delete;

    void bringToFront() override;

  private:
    tavrin::View content(const tavrin::AlertQuestion&);
    void answer(std::size_t button);

    ProgramPresentation& presentation_;
    ProgramCallbacks callbacks_;
    std::function<void(std::size_t)> onAnswer_;
    SurfaceIdentifier surface_{};
};

} // namespace mac_model
