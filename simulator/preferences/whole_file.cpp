#include "preferences/whole_file.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace mac_model {

namespace {

std::string lastError() { return std::generic_category().message(errno); }

class Descriptor {
  public:
    Descriptor(const std::filesystem::path& path, int flags)
        : number_(::open(path.c_str(), flags | O_CLOEXEC, 0644)) {}

    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    ~Descriptor() {
        if (isOpen()) ::close(number_);
    }

    bool isOpen() const { return number_ >= 0; }

    int number() const { return number_; }

    bool writeAll(std::string_view text) const {
        while (!text.empty()) {
            const auto written = ::write(number_, text.data(), text.size());
            if (written < 0 && errno == EINTR) continue;
            if (written <= 0) return false;
            text.remove_prefix(static_cast<std::size_t>(written));
        }
        return true;
    }

  private:
    int number_;
};

std::expected<void, std::string> writeNew(const std::filesystem::path& path, std::string_view text) {
    const Descriptor file(path, O_WRONLY | O_CREAT | O_TRUNC);
    if (!file.isOpen() || !file.writeAll(text) || ::fsync(file.number()) != 0)
        return std::unexpected(lastError());
    return {};
}

} // namespace

std::expected<std::string, std::string> readWholeFile(const std::filesystem::path& path) {
    const Descriptor file(path, O_RDONLY);
    if (!file.isOpen()) return std::unexpected(lastError());
    std::string text;
    char buffer[16384];
    for (;;) {
        const auto count = ::read(file.number(), buffer, sizeof buffer);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return std::unexpected(lastError());
        if (count == 0) return text;
        text.append(buffer, static_cast<std::size_t>(count));
    }
}

std::expected<void, std::string> replaceWholeFile(const std::filesystem::path& path, std::string_view text) {
    auto beside = path;
    beside += ".new";
    if (auto written = writeNew(beside, text); !written) {
        ::unlink(beside.c_str());
        return written;
    }
    if (::rename(beside.c_str(), path.c_str()) != 0) return std::unexpected(lastError());
    if (const Descriptor folder(path.parent_path(), O_RDONLY | O_DIRECTORY); folder.isOpen())
        ::fsync(folder.number());
    return {};
}

} // namespace mac_model
