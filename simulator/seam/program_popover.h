#pragma once

#include "platform/presentation.h"
#include "seam/program_callbacks.h"
#include "seam/program_presentation.h"
#include "seam/program_recorders.h"

#include <optional>

namespace mac_model {

class ProgramPopover final : public tavrin::Popover {
  public:
    ProgramPopover(ProgramPresentation&, tavrin::PopoverBehavior, ProgramCallbacks);
    ~ProgramPopover() override;
    ProgramPopover(const ProgramPopover&) = delete;
    ProgramPopover& operator=(const ProgramPopover&) = delete;

    void setContent(tavrin::View content) override;
    void setBehavior(tavrin::PopoverBehavior) override;
    bool show(tavrin::StatusItem& item, tavrin::Rect area) override;
    void close() override;

    bool isShown() const override { return surface_ != SurfaceIdentifier::None; }

    void followItem();

  private:
    void layOut(Surface&) const;
    OutsidePress outsidePress() const;

    ProgramPresentation& presentation_;
    tavrin::PopoverBehavior behavior_;
    ProgramCallbacks callbacks_;
    tavrin::View content_;
    SurfaceIdentifier surface_{};
    ProgramRecorders recorders_{presentation_.stack_, surface_};
    StatusItemIdentifier item_{};
    tavrin::Rect area_;
    tavrin::Point itemOrigin_; // when `area_` was valid
};

} // namespace mac_model
