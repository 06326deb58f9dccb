#pragma once

namespace tavrin {

/// The update framework bundled with the application.
class Updater {
  public:
    virtual ~Updater() = default;

    virtual bool checksAutomatically() const = 0;
    virtual bool downloadsAutomatically() const = 0;
    virtual void setAutomatic(bool checksAndDownloads) = 0;
    /// Looks for a new version now and shows the user what it finds.
    virtual void checkNow() = 0;
};

} // namespace tavrin
