#pragma once

#include "platform/presentation.h"
#include "screen/titled_window.h"
#include "seam/program_surface.h"
#include "vocabulary/vocabulary.h"

#include <string>

namespace mac_model {

class ProgramWindow final : public tavrin::Window {
  public:
    ProgramWindow(ProgramPresentation&, std::string title, ProgramCallbacks);

    void setContent(View content) override { surface_.setContent(std::move(content)); }

    void placeBelowMenuBar() override { place_ = WindowPlace::BelowMenuBar; }

    void makeKeyAndOrderFront() override;

    void close() override { surface_.close(); }

    bool isVisible() const override { return surface_.isOpen(); }

  private:
    void layOut(Surface&, const View& content) const;
    void hasClosed();

    ProgramPresentation& presentation_;
    WindowPlace place_ = WindowPlace::Usual;
    ProgramSurface surface_;
};

} // namespace mac_model
