#include "driver/modelled_mac.h"

#include <utility>

namespace mac_model {

std::expected<std::unique_ptr<ModelledMac>, std::string> ModelledMac::start(MacOptions options,
                                                                            ProgramFactory factory) {
    std::unique_ptr<ModelledMac> modelled(new ModelledMac);
    auto mac = Mac::create(modelled->scheduler_, std::move(options));
    if (!mac) return std::unexpected(std::move(mac.error()));
    modelled->mac_ = std::move(*mac);
    modelled->driver_ = std::make_unique<Driver>(*modelled->mac_);
    modelled->mac_->program().install(std::move(factory), modelled->mac_->presentation());
    // The menu bar is arranged before anybody logs in.
    modelled->scheduler_.advance(Faults::usualArrangingTime);
    modelled->mac_->program().start();
    modelled->scheduler_.advance(Seconds{0});
    return modelled;
}

ModelledMac::~ModelledMac() {
    if (!mac_) return;
    // The program's objects go while all that they refer to is still there.
    mac_->program().crash();
    scheduler_.advance(Seconds{0});
}

} // namespace mac_model
