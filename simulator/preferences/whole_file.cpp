#include "preferences/whole_file.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace mac_model {

namespace {

std::string lastError() { return std::generic_category().message(errno); }

class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}

    Descriptor(const std::filesystem::path& path, int flags)
        : number_(::open(path.c_str(), flags | O_CLOEXEC, 0644)) {}

    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    ~Descriptor() {
        if (isOpen()) ::close(number_);
    }

    bool isOpen() const { return number_ >= 0; }

    int number() const { return number_; }

    int release() { return std::exchange(number_, -1); }

    bool isRegularFile() const {
        struct stat status{};
        return ::fstat(number_, &status) == 0 && S_ISREG(status.st_mode);
    }

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

constexpr std::string_view notRegular = "It is no regular file";

/// Makes a file beside `path`, whose name comes to stand in `beside`, and writes it to the disk.
std::expected<void, std::string> writeBeside(const std::filesystem::path& path, std::string_view text,
                                             std::string& beside) {
    beside = (path.parent_path() / ("." + path.filename().string() + ".XXXXXX")).string();
    const Descriptor file(::mkostemp(beside.data(), O_CLOEXEC));
    if (!file.isOpen()) {
        const auto reason = lastError();
        beside.clear();
        return std::unexpected(reason);
    }
    const bool isWritten =
        file.writeAll(text) && ::fchmod(file.number(), 0644) == 0 && ::fsync(file.number()) == 0;
    if (!isWritten) return std::unexpected(lastError());
    return {};
}

std::expected<void, std::string> rename(const std::string& from, const std::filesystem::path& to) {
    if (::rename(from.c_str(), to.c_str()) != 0) return std::unexpected(lastError());
    return {};
}

} // namespace

std::expected<std::string, std::string> readWholeFile(const std::filesystem::path& path) {
    const Descriptor file(path, O_RDONLY | O_NONBLOCK);
    if (!file.isOpen()) return std::unexpected(lastError());
    if (!file.isRegularFile()) return std::unexpected(std::string(notRegular));
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
    std::string beside;
    auto done = writeBeside(path, text, beside);
    if (done) done = rename(beside, path);
    if (!done) {
        if (!beside.empty()) ::unlink(beside.c_str());
        return done;
    }
    if (const Descriptor folder(path.parent_path(), O_RDONLY | O_DIRECTORY); folder.isOpen())
        ::fsync(folder.number());
    return {};
}

std::expected<std::optional<FolderLock>, std::string> FolderLock::take(const std::filesystem::path& folder) {
    Descriptor file(folder / ".lock", O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK);
    if (!file.isOpen()) return std::unexpected(lastError());
    if (!file.isRegularFile()) return std::unexpected(std::string(notRegular));
    if (::flock(file.number(), LOCK_EX | LOCK_NB) == 0) return FolderLock(file.release());
    if (errno == EWOULDBLOCK) return std::nullopt;
    return std::unexpected(lastError());
}

FolderLock::~FolderLock() {
    if (descriptor_ >= 0) ::close(descriptor_);
}

} // namespace mac_model
