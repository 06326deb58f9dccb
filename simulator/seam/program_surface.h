#pragma once

#include "seam/program_callbacks.h"
#include "seam/program_presentation.h"
#include "seam/program_recorders.h"
#include "vocabulary/vocabulary.h"

#include <functional>
#include <string>

namespace mac_model {

/// The common part of the program's surfaces: content with its recorders, which may be set before the surface
/// is shown, and a place on the stack while it is shown.
class ProgramSurface {
  public:
    /// How surfaces of one kind differ.
    struct Nature {
        SurfaceKind kind{};
        std::string title = {};
        /// Gives the surface its frame, and this content laid out in it by `showAnew`.
        std::function<void(Surface&, const View& content)> layOut;
        /// Called when it has left the screen while its owner lives.
        std::function<void()> onGone = {};
    };

    ProgramSurface(SurfaceStack& stack, ProgramCallbacks callbacks, Nature nature)
        : stack_(stack)
        , callbacks_(std::move(callbacks))
        , nature_(std::move(nature)) {}

    /// Takes the surface off the screen without telling anyone.
    ~ProgramSurface() { stack_.remove(identifier_); }

    ProgramSurface(const ProgramSurface&) = delete;
    ProgramSurface& operator=(const ProgramSurface&) = delete;

    void setContent(View);

    /// Puts it on the screen unless it is there, and lays it out. False when the process has ended.
    bool open();
    /// Nothing happens unless it is on the screen.
    void close();
    void bringToFront();
    void layOut();

    bool isOpen() const { return identifier_ != SurfaceIdentifier::None; }

    /// Null while it isn't on the screen.
    Surface* shown() { return stack_.find(identifier_); }

    SurfaceIdentifier identifier() const { return identifier_; }

    const ProgramCallbacks& callbacks() const { return callbacks_; }

  private:
    Surface& add();
    void hasGone();

    SurfaceStack& stack_;
    ProgramCallbacks callbacks_;
    Nature nature_;
    View content_;
    SurfaceIdentifier identifier_{};
    ProgramRecorders recorders_{stack_, identifier_};
};

} // namespace mac_model
