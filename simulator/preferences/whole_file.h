#pragma once

#include <expected>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace mac_model {

// Files read and replaced as a whole, and the lock on a folder of them. Errors are the system's words for the
// reason, such as "Permission denied".

/// Only regular files are read: a pipe would keep the reader waiting.
[[nodiscard]] std::expected<std::string, std::string> readWholeFile(const std::filesystem::path&);

/// Writes beside the file under a name that nothing has, flushes to the disk and renames: after a crash of
/// the machine the file holds either the old text or the new one. A link at the path is replaced; what it led
/// to stays as it is. Its folder must exist.
[[nodiscard]] std::expected<void, std::string> replaceWholeFile(const std::filesystem::path&,
                                                                std::string_view text);

/// Keeps other processes, and other locks of this one, from a folder for as long as it lives. The file
/// ".lock" that holds it stays behind, free, also when the process is killed.
class FolderLock {
  public:
    /// None without an error: somebody else has the folder.
    [[nodiscard]] static std::expected<std::optional<FolderLock>, std::string>
    take(const std::filesystem::path& folder);

    FolderLock(FolderLock&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

    FolderLock& operator=(FolderLock&& other) noexcept {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }

    ~FolderLock();

  private:
    explicit FolderLock(int descriptor) : descriptor_(descriptor) {}

    int descriptor_;
};

} // namespace mac_model
