#pragma once

#include "platform/presentation.h"
#include "seam/program_surface.h"
#include "vocabulary/vocabulary.h"

namespace mac_model {

class ProgramPopover final : public tavrin::Popover {
  public:
    ProgramPopover(ProgramPresentation&, PopoverBehavior, ProgramCallbacks);
    ~ProgramPopover() override;
    ProgramPopover(const ProgramPopover&) = delete;
    ProgramPopover& operator=(const ProgramPopover&) = delete;

    void setContent(View content) override { surface_.setContent(std::move(content)); }

    void setBehavior(PopoverBehavior) override;
    bool show(StatusItem& item, Rect area) override;

    void close() override { surface_.close(); }

    bool isShown() const override { return surface_.isOpen(); }

    void followItem();

  private:
    void layOut(Surface&, const View& content) const;
    Rect onScreenOfPress(Rect) const;
    OutsidePress outsidePress() const;
    bool isOnScreen();
    bool isAnchorDrawn(Rect frameForProgram) const;

    ProgramPresentation& presentation_;
    PopoverBehavior behavior_;
    StatusItemIdentifier item_{};
    Rect area_;
    Point itemOrigin_; // when `area_` was valid
    ProgramSurface surface_;
};

} // namespace mac_model
