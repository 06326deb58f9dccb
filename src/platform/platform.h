#pragma once

namespace tavrin {

class Accessibility;
class Application;
class Defaults;
class EventMonitors;
class Events;
class HotKeys;
class Keyboard;
class LoginItem;
class Presentation;
class Randomness;
class Scheduler;
class Screens;
class StatusItems;
class Text;
class Updater;
class VisibilityService;
class WindowServer;
class Workspace;

/// All of the operating system that the program uses; the families outlive the program. They and the
/// program's classes are called on the main thread and call back there, unless a header says otherwise.
struct Platform {
    Scheduler& scheduler;
    Application& application;
    Accessibility& accessibility;
    Defaults& defaults;
    EventMonitors& eventMonitors;
    Events& events;
    HotKeys& hotKeys;
    Keyboard& keyboard;
    LoginItem& loginItem;
    Presentation& presentation;
    Randomness& randomness;
    Screens& screens;
    StatusItems& statusItems;
    Text& text;
    VisibilityService& visibilityService;
    WindowServer& windowServer;
    Workspace& workspace;
    Updater* updater = nullptr; // none when no update framework is bundled
};

} // namespace tavrin
