#pragma once

#include "screen/surface_stack.h"
#include "system/process_table.h"
#include "system/program_process.h"
#include "system/screens_model.h"
#include "system/world_calls.h"
#include "views/view.h"
#include "vocabulary/vocabulary.h"

#include <functional>
#include <string_view>

namespace mac_model {

/// The dialog in which macOS says that the program would like to use Accessibility. It belongs to a process
/// of the system, which runs while the dialog is shown.
class AccessPrompt {
  public:
    static constexpr std::string_view bundleIdentifier = "com.apple.accessibility.universalAccessAuthWarn";

    AccessPrompt(VirtualScheduler&, ProcessTable&, const ScreensModel&, const ProgramInfo&, SurfaceStack&,
                 std::function<void()> openSettings);
    AccessPrompt(const AccessPrompt&) = delete;
    AccessPrompt& operator=(const AccessPrompt&) = delete;

    /// Shows the dialog, or brings it to the front.
    void show();

  private:
    ProcessIdentifier process();
    Surface dialog(ProcessIdentifier owner);
    View content();

    WorldCalls world_;
    ProcessTable& processes_;
    const ScreensModel& screens_;
    const ProgramInfo& program_;
    SurfaceStack& stack_;
    std::function<void()> openSettings_;
    SurfaceIdentifier shown_{};
};

} // namespace mac_model
