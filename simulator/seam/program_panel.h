#pragma once

#include "platform/presentation.h"
#include "seam/program_surface.h"
#include "vocabulary/vocabulary.h"

namespace mac_model {

class ProgramPanel final : public tavrin::Panel {
  public:
    ProgramPanel(ProgramPresentation&, ProgramCallbacks);

    void setContent(View content) override { surface_.setContent(std::move(content)); }

    void show(Rect anchor) override;

    void close() override { surface_.close(); }

    bool isShown() const override { return surface_.isOpen(); }

  private:
    void layOut(Surface&, const View& content) const;

    ProgramPresentation& presentation_;
    Rect anchor_;
    ProgramSurface surface_;
};

} // namespace mac_model
