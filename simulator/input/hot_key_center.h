#pragma once

#include "desktop/desktop_file.h"
#include "platform/hot_keys.h"

#include <cstdint>
#include <expected>
#include <functional>
#include <vector>

namespace mac_model {

/// Who holds which hot keys. A key that nobody holds exclusively may be held by several processes, and then
/// reaches all of them; one process can't hold it twice. The system's own shortcuts are a list that doesn't
/// bear on this. Calls directly.
class HotKeyCenter {
  public:
    enum class Registration : std::uint64_t {};

    explicit HotKeyCenter(const DesktopFile&);

    /// For the program.
    std::expected<Registration, tavrin::HotKeys::Error> add(tavrin::KeyCode, tavrin::CarbonModifiers,
                                                            std::function<void()> onPress);
    void remove(Registration);

    /// Another process takes a hot key or gives it up. Who holds it already keeps it.
    void set(const TakenHotKey&);

    /// A key goes down. Whether it ends with its holders.
    bool press(const tavrin::KeyPress&);

    std::vector<tavrin::SymbolicHotKey> symbolicHotKeys;

  private:
    struct Held {
        Registration registration;
        tavrin::KeyPress key;
        std::function<void()> onPress;
    };

    std::vector<Held> held_;
    std::vector<TakenHotKey> taken_; // by others
    std::uint64_t nextRegistration_ = 1;
};

} // namespace mac_model
