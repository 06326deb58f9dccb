#pragma once

#include "menu_bar/status_item_record.h"
#include "platform/status_items.h"
#include "seam/system/program_side.h"
#include "vocabulary/vocabulary.h"

#include <memory>
#include <string>

namespace mac_model {

/// The program's handle on one of its items in the status area.
class ProgramStatusItem final : public StatusItem {
  public:
    ProgramStatusItem(ProgramSide, double length);
    ProgramStatusItem(const ProgramStatusItem&) = delete;
    ProgramStatusItem& operator=(const ProgramStatusItem&) = delete;
    ~ProgramStatusItem() override;

    /// For anchoring popovers and menus; names no living item once the process has ended.
    StatusItemIdentifier identifier() const { return identifier_; }

    void setLength(double length) override;
    double length() const override;
    void setAutosaveName(std::string name) override;
    void setVisible(bool visible) override;
    void setImage(TemplateImage image) override;
    void setToolTip(std::string text) override;
    void setAccessibilityLabel(std::string label) override;
    void setAccessibilityValue(std::string value) override;
    void setAccessibilityActions(std::vector<tavrin::ViewAction> actions) override;
    void setHiddenFromAccessibility(bool hidden) override;
    void setAlpha(double alpha) override;
    void setDecorations(bool pillShown, double glow) override;
    void setAction(std::function<void(StatusItemPress)> action) override;
    std::optional<Rect> frame() const override;
    bool isDrawn() const override;

  private:
    const StatusItemRecord* record() const;
    bool isPlaced() const;
    template <class Change>
    void changeAppearance(const Change& change);

    ProgramSide side_;
    StatusItemIdentifier identifier_ = StatusItemIdentifier::None;
    Seconds createdAt_;
};

} // namespace mac_model
