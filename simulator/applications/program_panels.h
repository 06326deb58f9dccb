#pragma once

#include "screen/surface_stack.h"
#include "system/program_process.h"
#include "system/screens_model.h"
#include "system/world_calls.h"
#include "views/view.h"
#include "vocabulary/vocabulary.h"

namespace mac_model {

/// The panels that macOS and the update framework show for the program: its about panel, and the result of a
/// search for updates.
class ProgramPanels {
  public:
    ProgramPanels(VirtualScheduler& scheduler, const ProgramProcess& program, const ScreensModel& screens,
                  SurfaceStack& stack)
        : world_(scheduler)
        , program_(program)
        , screens_(screens)
        , stack_(stack) {}

    ProgramPanels(const ProgramPanels&) = delete;
    ProgramPanels& operator=(const ProgramPanels&) = delete;

    void showAbout();
    void showUpToDate();

  private:
    void show(SurfaceIdentifier& shown, Surface, const View& content);

    WorldCalls world_;
    const ProgramProcess& program_;
    const ScreensModel& screens_;
    SurfaceStack& stack_;
    SurfaceIdentifier about_{};
    SurfaceIdentifier upToDate_{};
};

} // namespace mac_model
