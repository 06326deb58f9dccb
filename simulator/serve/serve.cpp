#include "serve/serve.h"

#include "concurrency/thread_scheduler.h"
#include "desktop/desktop_loader.h"
#include "serve/page_files.h"
#include "serve/page_server.h"
#include "vocabulary/vocabulary.h"

#include <csignal>
#include <future>
#include <memory>
#include <mutex>
#include <ostream>
#include <unistd.h>
#include <utility>

namespace mac_model {

namespace {

using nlohmann::json;

/// Carries commands from the server's threads to the main thread.
class Crossing {
  public:
    Crossing(ThreadScheduler& main, LiveMac& mac) : main_(main), mac_(mac) {}

    json ask(json command) {
        auto reply = std::make_shared<std::promise<json>>();
        auto future = reply->get_future();
        {
            std::lock_guard lock(mutex_);
            if (isClosed_) return {{"ok", false}, {"error", "The modelled Mac is being shut down."}};
            main_.post(
                [this, reply, command = std::move(command)] { reply->set_value(mac_.command(command)); });
        }
        return future.get();
    }

    /// What was asked before is answered when the main thread runs what is posted to it.
    void close() {
        std::lock_guard lock(mutex_);
        isClosed_ = true;
    }

  private:
    ThreadScheduler& main_;
    LiveMac& mac_;
    std::mutex mutex_;
    bool isClosed_ = false;
};

sigset_t endingSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    return signals;
}

} // namespace

std::vector<DesktopChoice> builtInChoices() {
    std::vector<DesktopChoice> choices;
    for (const auto& [name, text] : builtInDesktops())
        if (auto desktop = parseDesktopFile(text, name))
            choices.push_back({std::string(name), std::move(*desktop)});
    return choices;
}

int serve(ServeOptions options, std::ostream& out, std::ostream& errors) {
    const auto signals = endingSignals();
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    Broadcast broadcast;
    ThreadScheduler clock;
    const auto first = options.desktops.front().name;
    LiveMac mac(clock, broadcast, std::move(options.desktops), std::move(options.start));
    if (const auto shown = mac.show(first, std::nullopt); !shown) {
        errors << shown.error() << '\n';
        return 1;
    }
    Crossing crossing(clock, mac);
    const auto server = PageServer::create(
        options.port, [&crossing](json command) { return crossing.ask(std::move(command)); }, broadcast);
    if (!server) {
        errors << server.error() << '\n';
        return 1;
    }
    const auto listening = clock.makeSerialQueue("tavrin.page.server");
    const auto ending = clock.makeSerialQueue("tavrin.page.signals");
    listening->post([&server] { (*server)->run(); });
    ending->post([&clock, signals] {
        int signal = 0;
        sigwait(&signals, &signal);
        clock.stop();
    });
    out << "The modelled Mac is at http://127.0.0.1:" << (*server)->port() << "/ (Control-C ends it)"
        << std::endl;
    clock.run();
    crossing.close();
    clock.runFor(Seconds{0});
    broadcast.close();
    (*server)->stop();
    return 0;
}

} // namespace mac_model
