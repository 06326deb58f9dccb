#pragma once

#include "concurrency/signal.h"
#include "screen/surface_stack.h"
#include "views/recorder_button.h"
#include "vocabulary/vocabulary.h"

#include <map>
#include <memory>

namespace mac_model {

/// The recorders in the content of one surface of the program: they stay while their place in the tree does,
/// and get the clicks, the changes of focus and the news of the key window. Call it from the program's main
/// loop.
class ProgramRecorders {
  public:
    /// `surface` tells which surface shows the content now.
    ProgramRecorders(SurfaceStack& stack, const SurfaceIdentifier& surface)
        : stack_(stack)
        , surface_(surface) {}

    ProgramRecorders(const ProgramRecorders&) = delete;
    ProgramRecorders& operator=(const ProgramRecorders&) = delete;

    /// Makes the recorders that this content has and lets the others go.
    void follow(const View& content);
    /// Shows them in the laid-out content of the surface.
    void dress(Surface&) const;

    void followFocus();

    void windowResignedKey() { resignedKey_.emit(); }

  private:
    class Host;

    SurfaceStack& stack_;
    const SurfaceIdentifier& surface_;
    std::map<ViewPath, std::shared_ptr<Host>> hosts_;
    Signal<> resignedKey_;
};

} // namespace mac_model
