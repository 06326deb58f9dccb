#pragma once

#include "platform/presentation.h"
#include "seam/program_surface.h"

namespace mac_model {

class ProgramPopover final : public tavrin::Popover {
  public:
    ProgramPopover(ProgramPresentation&, tavrin::PopoverBehavior, ProgramCallbacks);
    ~ProgramPopover() override;
    ProgramPopover(const ProgramPopover&) = delete;
    ProgramPopover& operator=(const ProgramPopover&) = delete;

    void setContent(tavrin::View content) override { surface_.setContent(std::move(content)); }

    void setBehavior(tavrin::PopoverBehavior) override;
    bool show(tavrin::StatusItem& item, tavrin::Rect area) override;

    void close() override { surface_.close(); }

    bool isShown() const override { return surface_.isOpen(); }

    void followItem();

  private:
    void layOut(Surface&, const tavrin::View& content) const;
    OutsidePress outsidePress() const;

    ProgramPresentation& presentation_;
    tavrin::PopoverBehavior behavior_;
    StatusItemIdentifier item_{};
    tavrin::Rect area_;
    tavrin::Point itemOrigin_; // when `area_` was valid
    ProgramSurface surface_;
};

} // namespace mac_model
