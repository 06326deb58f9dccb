#pragma once

#include "privacy/permission.h"
#include "screen/surface_stack.h"
#include "system/process_table.h"
#include "system/program_process.h"
#include "system/screens_model.h"
#include "system/world_calls.h"
#include "views/view.h"
#include "vocabulary/vocabulary.h"

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace mac_model {

/// System Settings, with only the list of applications that may use Accessibility, and a page about those
/// that open at login, on which nothing can be changed. It runs while its window is open.
class SystemSettings {
  public:
    static constexpr std::string_view bundleIdentifier = "com.apple.systempreferences";
    static constexpr std::string_view loginItemsLink =
        "x-apple.systempreferences:com.apple.LoginItems-Settings.extension";
    static constexpr std::string_view accessibilityLink =
        "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";

    SystemSettings(VirtualScheduler&, ProcessTable&, const ScreensModel&, Permission&, const ProgramInfo&,
                   SurfaceStack&);
    SystemSettings(const SystemSettings&) = delete;
    SystemSettings& operator=(const SystemSettings&) = delete;

    /// Shows the page that the link names; false for links of other applications.
    bool open(std::string_view url);

  private:
    enum class Page { Accessibility, LoginItems };

    static std::optional<Page> pageOf(std::string_view url);
    static std::string titleOf(Page);
    void showWindow(ProcessIdentifier);
    void update();
    void hasClosed();
    void toggleOther(const std::string& bundleIdentifier);
    View content();
    View accessibilityPage();
    View loginItemsPage() const;
    std::vector<View> switches();

    WorldCalls world_;
    ProcessTable& processes_;
    const ScreensModel& screens_;
    Permission& permission_;
    const ProgramInfo& program_;
    SurfaceStack& stack_;
    SurfaceIdentifier window_{};
    Page page_ = Page::Accessibility;
    std::set<std::string> trustedOthers_; // bundle identifiers
    Subscription permissionChanges_;
};

} // namespace mac_model
