#pragma once

namespace mac_model {

/// The update framework in the program's bundle, as far as its settings.
class UpdaterModel {
  public:
    explicit UpdaterModel(bool isAutomatic) : isAutomatic_(isAutomatic) {}

    bool checksAutomatically() const { return isAutomatic_; }

    bool downloadsAutomatically() const { return isAutomatic_; }

    void setAutomatic(bool checksAndDownloads) { isAutomatic_ = checksAndDownloads; }

  private:
    bool isAutomatic_;
};

} // namespace mac_model
