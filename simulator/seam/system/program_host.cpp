#include "seam/system/program_host.h"

#include "seam/system/program_facades.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace mac_model {

/// Everything that one process of the program consists of. The delegate goes before what it uses.
struct ProgramHost::Life {
    std::shared_ptr<ProgramConnection> connection;
    ProgramFacades facades;
    std::unique_ptr<tavrin::ApplicationDelegate> delegate;
};

bool hasWindow(const SurfaceStack& surfaces, ProcessIdentifier process) {
    return std::ranges::any_of(surfaces.backToFront(), [&](const auto& surface) {
        return surface->kind == SurfaceKind::Window && surface->owner == process;
    });
}

ProgramHost::ProgramHost(const MacServices& mac) : mac_(mac), world_(mac.scheduler) {
    subscriptions_.push_back(mac_.processes.onFrontChanged.subscribe([this] { noticeActivation(); }));
    const auto release = [this] { onKeysReleased.emit(); };
    subscriptions_.push_back(mac_.surfaces.onKeyChanged.subscribe(release));
    subscriptions_.push_back(mac_.menus.onChanged.subscribe(release));
    subscriptions_.push_back(mac_.processes.onToldToQuit.subscribe([this](ProcessIdentifier process) {
        if (life_ && life_->connection->process() == process) terminate();
    }));
    subscriptions_.push_back(mac_.processes.onSettingsChosen.subscribe([this](ProcessIdentifier process) {
        if (life_ && life_->connection->process() == process)
            life_->connection->post([this] { life_->delegate->applicationShowSettings(); });
    }));
}

ProgramHost::~ProgramHost() {
    if (life_) end(End::Crash);
    ending_.clear();
}

void ProgramHost::install(ProgramFactory factory, tavrin::Presentation& presentation) {
    factory_ = std::move(factory);
    presentation_ = &presentation;
}

void ProgramHost::start() {
    if (!life_) return launch();
    life_->connection->post([this] {
        const bool hasWindows = hasWindow(mac_.surfaces, life_->connection->process());
        life_->delegate->applicationShouldHandleReopen(hasWindows);
    });
}

void ProgramHost::launch() {
    assert(factory_ && presentation_ && "installed before the start");
    ApplicationSpec application;
    application.bundleIdentifier = mac_.program.info().bundleIdentifier;
    application.name = mac_.program.info().name;
    application.policy = Policy::Accessory;
    application.hasSettings = true;
    mac_.permission.programStarted();
    const auto process = mac_.processes.launch(std::move(application), Quitting::AfterItsAnswer);
    const auto connection = std::make_shared<ProgramConnection>(mac_.scheduler, process.value());
    lastConnection_ = connection;
    mac_.program.connect(connection);
    life_ = std::shared_ptr<Life>(new Life{connection, {{connection, mac_}, *this, *presentation_}, nullptr});
    onStarted.emit();
    // If the last life's delegate is still to be destroyed, that was posted before.
    connection->post([this] { life_->delegate = factory_(life_->facades.platform()); });
    connection->post([this] { life_->delegate->applicationDidFinishLaunching(); });
}

void ProgramHost::noticeActivation() {
    const auto* front = mac_.processes.frontmost();
    const bool isActive = life_ && front && front->identifier == life_->connection->process();
    if (std::exchange(isActive_, isActive) != isActive && isActive) onActivated.emit();
}

void ProgramHost::terminate() {
    if (life_) life_->connection->post([this] { ask(); });
}

void ProgramHost::ask() {
    isReplyAwaited_ = true; // the reply may come from within the question
    const auto life = life_;
    if (life->delegate->applicationShouldTerminate() == tavrin::TerminateReply::Now && life == life_)
        end(End::InOrder);
}

void ProgramHost::replyToShouldTerminate(bool terminates) {
    if (!life_ || !std::exchange(isReplyAwaited_, false)) return;
    if (terminates) end(End::InOrder);
}

void ProgramHost::crash() {
    if (life_) end(End::Crash);
}

void ProgramHost::lastWindowClosed() {
    if (!life_) return;
    life_->connection->post([this] {
        if (life_->delegate->applicationShouldTerminateAfterLastWindowClosed()) ask();
    });
}

void ProgramHost::end(End how) {
    const auto process = life_->connection->process();
    if (how == End::InOrder) mac_.arrangement.storePositions(process);
    ending_.push_back(std::exchange(life_, nullptr));
    isReplyAwaited_ = false;
    isActive_ = false;
    mac_.program.disconnect();
    mac_.processes.end(process);
    world_.post([this, life = std::weak_ptr(ending_.back())] { std::erase(ending_, life.lock()); });
}

std::vector<std::string> ProgramHost::leftovers() const {
    std::vector<std::string> found;
    if (life_) return found;
    const auto add = [&](std::size_t count, const std::string& what) {
        if (count > 0)
            found.push_back("The program left behind " + what + ": " + std::to_string(count) + ".");
    };
    add(ending_.size(), "processes that have not gone yet");
    add(mac_.scheduler.tasksAlive(), "running jobs");
    add(mac_.scheduler.timersPending(), "timers");
    add(static_cast<std::size_t>(lastConnection_.use_count()), "references to the platform");
    return found;
}

} // namespace mac_model
