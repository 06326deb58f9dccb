#include "seam/program_recorders.h"

#include "screen/keyboard_focus.h"

#include <utility>
#include <variant>
#include <vector>

namespace mac_model {

namespace {

using Makers = std::map<ViewPath, std::shared_ptr<const tavrin::RecorderButtonMaker>>;

void findMakers(const View& view, ViewPath& path, Makers& found) {
    const auto* recorder = std::get_if<tavrin::kinds::ShortcutRecorder>(&view.kind);
    if (recorder && recorder->maker) found[path] = recorder->maker;
    for (std::size_t i = 0; i < view.children.size(); ++i) {
        path.push_back(i);
        findMakers(view.children[i], path, found);
        path.pop_back();
    }
}

} // namespace

class ProgramRecorders::Host final : public tavrin::RecorderButtonHost {
  public:
    Host(ProgramRecorders& recorders, ViewPath path, const tavrin::RecorderButtonMaker& maker)
        : recorders_(recorders)
        , path_(std::move(path))
        , button_(maker.make(*this)) {}

    tavrin::RecorderButton& button() { return *button_; }

    void dress(LaidOutView& view, const std::shared_ptr<Host>& self) const {
        view.recorderTitle = title_;
        view.isRecording = look_ == RecorderLook::Recording;
        view.view.onPress = [host = std::weak_ptr(self)] {
            if (const auto alive = host.lock()) alive->button_->clicked();
        };
    }

    void show(std::string title, RecorderLook look) override {
        title_ = std::move(title);
        look_ = look;
        if (auto* surface = recorders_.stack_.find(recorders_.surface_)) recorders_.dress(*surface);
    }

    bool isInWindow() const override { return recorders_.stack_.find(recorders_.surface_) != nullptr; }

    bool makeFirstResponder() override {
        auto* surface = recorders_.stack_.find(recorders_.surface_);
        if (!surface || !focusOn(*surface, path_)) return false;
        recorders_.followFocus();
        return isFirstResponder();
    }

    bool isFirstResponder() const override {
        const auto* surface = recorders_.stack_.find(recorders_.surface_);
        return surface && surface->focus.standsAt() == path_;
    }

    Subscription onWindowResignedKey(std::function<void()> handler) override {
        return recorders_.resignedKey_.subscribe(std::move(handler));
    }

    /// Tells the button when it was the first responder and no longer is.
    void followFocus() {
        const bool wasFirst = std::exchange(isFirst_, isFirstResponder());
        if (wasFirst && !isFirst_) button_->resignedFirstResponder();
    }

  private:
    ProgramRecorders& recorders_;
    const ViewPath path_;
    std::string title_;
    RecorderLook look_ = RecorderLook::Resting;
    bool isFirst_ = false;
    std::unique_ptr<tavrin::RecorderButton> button_;
};

void ProgramRecorders::follow(const View& content) {
    Makers makers;
    ViewPath path;
    findMakers(content, path, makers);
    std::vector<std::shared_ptr<Host>> gone;
    std::erase_if(hosts_, [&](const auto& entry) {
        if (makers.contains(entry.first)) return false;
        gone.push_back(entry.second);
        return true;
    });
    for (const auto& [place, maker] : makers) {
        const auto known = hosts_.find(place);
        const auto host =
            known != hosts_.end() ? known->second : std::make_shared<Host>(*this, place, *maker);
        hosts_[place] = host;
        maker->update(host->button());
    }
    // Last, because their handlers may replace the content.
    for (const auto& host : gone) host->button().movesFromWindow();
}

void ProgramRecorders::dress(Surface& surface) const {
    for (const auto& [path, host] : hosts_) {
        auto* view = viewAt(surface.content, path);
        if (view && tavrin::is<tavrin::kinds::ShortcutRecorder>(view->view)) host->dress(*view, host);
    }
}

void ProgramRecorders::followFocus() {
    const auto hosts = hosts_;
    for (const auto& [path, host] : hosts) host->followFocus();
}

} // namespace mac_model
