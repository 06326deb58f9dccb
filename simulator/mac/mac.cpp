#include "mac/mac.h"

#include "seam/seeded_randomness.h"
#include "seam/text_icu.h"

namespace mac_model {

std::expected<std::unique_ptr<Mac>, std::string> Mac::create(tavrin::VirtualScheduler& scheduler,
                                                             MacOptions options) {
    auto preferences = PreferencesStore::create(scheduler, options.profile, options.desktop);
    if (!preferences) return std::unexpected(preferences.error());
    return std::unique_ptr<Mac>(new Mac(scheduler, std::move(options), std::move(*preferences)));
}

Mac::Mac(tavrin::VirtualScheduler& scheduler, MacOptions options,
         std::unique_ptr<PreferencesStore> preferences)
    : scheduler_(scheduler)
    , desktop_(std::move(options.desktop))
    , uncertainties_(desktop_.model)
    , keyboard_(desktop_.keyboardLayout)
    , hotKeys_(desktop_)
    , preferences_(std::move(preferences))
    , screens_(std::make_unique<ScreensModel>(scheduler, desktop_.screens, faults_))
    , processes_(std::make_unique<ProcessTable>(desktop_.applications))
    , statusArea_(std::make_unique<StatusArea>(scheduler, *processes_, *screens_, *preferences_,
                                               desktop_.macOS, uncertainties_, faults_))
    , permission_(std::make_unique<Permission>(scheduler, *preferences_, uncertainties_,
                                               options.program.bundleIdentifier,
                                               desktop_.accessibilityTrusted))
    , accessibility_(std::make_unique<AccessibilityServer>(scheduler, *processes_, *statusArea_, *screens_,
                                                           *permission_, uncertainties_, faults_, openMenu,
                                                           options.seed))
    , eventServer_(std::make_unique<EventServer>(scheduler))
    , workspace_(std::make_unique<WorkspaceModel>(desktop_.macOS, desktop_.bundles))
    , text_(makeIcuText())
    , randomness_(std::make_unique<SeededRandomness>(options.seed, *preferences_))
    , program_(std::make_unique<ProgramHost>(*this, std::move(options.program))) {
    if (desktop_.updater != UpdaterSetting::Absent)
        updater_ = std::make_unique<UpdaterModel>(desktop_.updater == UpdaterSetting::Automatic);
}

Mac::~Mac() = default;

void Mac::setUncertainties(const Uncertainties& uncertainties) {
    uncertainties_ = uncertainties;
    statusArea_->refresh();
}

std::expected<void, std::string> Mac::quit(std::string_view bundleIdentifier) {
    if (!program_->isRunning() || bundleIdentifier != program_->info().bundleIdentifier)
        return processes_->quit(bundleIdentifier);
    program_->terminate();
    return {};
}

MacStatistics Mac::statistics() const {
    return {accessibility_->messages(), scheduler_.timersPending(), scheduler_.tasksAlive(),
            scheduler_.now()};
}

} // namespace mac_model
