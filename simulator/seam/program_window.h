#pragma once

#include "platform/presentation.h"
#include "seam/program_callbacks.h"
#include "seam/program_presentation.h"
#include "seam/program_recorders.h"

namespace mac_model {

class ProgramWindow final : public tavrin::Window {
  public:
    ProgramWindow(ProgramPresentation& presentation, std::string title, ProgramCallbacks callbacks)
        : presentation_(presentation)
        , title_(std::move(title))
        , callbacks_(std::move(callbacks)) {}

    ~ProgramWindow() override { presentation_.stack_.remove(surface_); }

    ProgramWindow(const ProgramWindow&) = delete;
    ProgramWindow& operator=(const ProgramWindow&) = delete;

    void setContent(tavrin::View content) override;
    void makeKeyAndOrderFront() override;
    void close() override;

    bool isVisible() const override { return surface_ != SurfaceIdentifier::None; }

  private:
    void open();
    void hasClosed();

    ProgramPresentation& presentation_;
    std::string title_;
    ProgramCallbacks callbacks_;
    tavrin::View content_;
    SurfaceIdentifier surface_{};
    ProgramRecorders recorders_{presentation_.stack_, surface_};
};

} // namespace mac_model
