#pragma once

#include "platform/presentation.h"
#include "screen/menu_tracking.h"
#include "screen/surface_stack.h"
#include "seam/system/program_host.h"
#include "seam/system/program_side.h"
#include "vocabulary/vocabulary.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace mac_model {

class ProgramPopover;

/// The item behind the program's handle.
StatusItemIdentifier identifierOf(const StatusItem&);

/// The program's popovers, windows and menus. Calls into the program are posted to its main thread, and
/// dropped if its process has ended, or the popover, window or menu was destroyed, by then.
class ProgramPresentation final : public tavrin::Presentation {
  public:
    ProgramPresentation(const MacServices& mac, ProgramHost& host)
        : mac_(mac)
        , host_(host)
        , stack_(mac.surfaces)
        , menus_(mac.menus) {}

    std::unique_ptr<tavrin::Popover> makePopover(PopoverBehavior, std::function<void()> onClose) override;
    std::unique_ptr<tavrin::Window> makeWindow(std::string title, std::function<void()> onClose) override;
    std::unique_ptr<tavrin::Panel> makePanel() override;
    std::unique_ptr<tavrin::Alert> showAlert(AlertQuestion,
                                             std::function<void(std::size_t)> onAnswer) override;
    void popUp(tavrin::Menu, StatusItem&, Rect area) override;

    /// Moves popovers with the status items that they are anchored at, and closes those whose item is gone.
    void followStatusItems();
    bool hasVisibleWindows() const;

  private:
    friend class ProgramAlert;
    friend class ProgramPanel;
    friend class ProgramPopover;
    friend class ProgramWindow;

    const MacServices& mac_;
    ProgramHost& host_;
    SurfaceStack& stack_;
    MenuTracking& menus_;
    std::vector<ProgramPopover*> popovers_;
};

} // namespace mac_model
