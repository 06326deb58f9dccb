#pragma once

#include "mac/mac.h"
#include "screen/surface_stack.h"
#include "system/world_calls.h"
#include "views/view.h"

namespace mac_model {

/// What macOS and the update framework show in the program's name: its about panel, and what a look for
/// updates has found.
class ProgramPanels {
  public:
    ProgramPanels(Mac& mac, SurfaceStack& stack) : mac_(mac), stack_(stack), world_(mac.scheduler()) {}

    ProgramPanels(const ProgramPanels&) = delete;
    ProgramPanels& operator=(const ProgramPanels&) = delete;

    void showAbout();
    void showUpToDate();

  private:
    void show(SurfaceIdentifier& shown, Surface, const tavrin::View& content);

    Mac& mac_;
    SurfaceStack& stack_;
    WorldCalls world_;
    SurfaceIdentifier about_{};
    SurfaceIdentifier upToDate_{};
};

} // namespace mac_model
