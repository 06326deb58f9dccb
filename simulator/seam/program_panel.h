#pragma once

#include "platform/presentation.h"
#include "seam/program_callbacks.h"
#include "seam/program_presentation.h"

namespace mac_model {

class ProgramPanel final : public tavrin::Panel {
  public:
    ProgramPanel(ProgramPresentation& presentation, ProgramCallbacks callbacks)
        : presentation_(presentation)
        , callbacks_(std::move(callbacks)) {}

    ~ProgramPanel() override { close(); }

    ProgramPanel(const ProgramPanel&) = delete;
    ProgramPanel& operator=(const ProgramPanel&) = delete;

    void setContent(tavrin::View content) override;
    void show(tavrin::Rect anchor) override;
    void close() override;

    bool isShown() const override { return surface_ != SurfaceIdentifier::None; }

  private:
    void layOut(Surface&) const;

    ProgramPresentation& presentation_;
    ProgramCallbacks callbacks_;
    tavrin::View content_;
    tavrin::Rect anchor_;
    SurfaceIdentifier surface_{};
};

} // namespace mac_model
