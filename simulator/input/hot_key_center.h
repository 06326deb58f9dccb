#pragma once

#include "desktop/desktop_file.h"
#include "platform/hot_keys.h"
#include "vocabulary/vocabulary.h"

#include <cstdint>
#include <expected>
#include <functional>
#include <vector>

namespace mac_model {

/// The hot keys that processes hold. A key that nobody holds exclusively may be held by several processes,
/// and then reaches all of them; one process can't hold it twice. The list of the system's own shortcuts has
/// no effect here. Handlers are called directly.
class HotKeyCenter {
  public:
    enum class Registration : std::uint64_t {};

    explicit HotKeyCenter(const DesktopFile&);

    /// Registers a hot key of the program.
    std::expected<Registration, tavrin::HotKeys::Error> add(KeyCode, tavrin::CarbonModifiers,
                                                            std::function<void()> onPress);
    void remove(Registration);

    /// Another process takes a hot key or gives it up. A process that already holds it keeps it.
    void set(const TakenHotKey&);

    /// A key goes down. True when the press ends with the key's holders.
    bool press(const KeyPress&);

    std::vector<SymbolicHotKey> symbolicHotKeys;

  private:
    struct Held {
        Registration registration;
        KeyPress key;
        std::function<void()> onPress;
    };

    std::vector<Held> held_;
    std::vector<TakenHotKey> taken_; // by others
    std::uint64_t nextRegistration_ = 1;
};

} // namespace mac_model
