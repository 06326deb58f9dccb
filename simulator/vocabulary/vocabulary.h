#pragma once

#include "base/geometry.h"
#include "concurrency/scheduler.h"
#include "concurrency/signal.h"
#include "platform/accessibility.h"
#include "platform/keyboard.h"

#include <cstdint>

// The words of the platform that the modelled Mac uses as its own. Those of the five headers above are
// complete here; the others are only declared, and a file that needs one of them whole includes its header.
// The interfaces that the modelled Mac implements (tavrin::Window, tavrin::StatusItems …) keep their prefix,
// so that each implementation shows what it implements.

namespace tavrin {

class EventSource;
class HotKeyEventHandler;
class HotKeyReference;
class PreparedEvent;
class StatusItem;
class ThreadScheduler;
class VirtualScheduler;

struct AlertQuestion;
struct DefaultsDomain;
struct DefaultsValue;
struct EventSourceSettings;
struct HotKeyIdentifier;
struct KeyAction;
struct KeyEvent;
struct MouseEvent;
struct OnScreenWindow;
struct OperatingSystemVersion;
struct RunningApplication;
struct SymbolicHotKey;
struct TemplateImage;
struct View;

enum class ActivationPolicy;
enum class ButtonStyle;
enum class EventField : std::uint32_t;
enum class EventTap : std::uint32_t;
enum class FocusStep;
enum class MouseEventType : std::uint32_t;
enum class PopoverBehavior;
enum class RecorderLook;
enum class StatusItemPress;
enum class TextStyle;
enum class Tone;

} // namespace tavrin

namespace mac_model {

// Geometry, time and notification.
using tavrin::Point;
using tavrin::Rect;
using tavrin::Scheduler;
using tavrin::Seconds;
using tavrin::Signal;
using tavrin::Size;
using tavrin::Subscription;
using tavrin::ThreadScheduler;
using tavrin::VirtualScheduler;
using tavrin::Work;

// Applications and what Accessibility says of them.
using tavrin::AccessibilityElement;
using tavrin::AccessibilityError;
using tavrin::ActivationPolicy;
using tavrin::AttributeResult;
using tavrin::AttributeValue;
using tavrin::OperatingSystemVersion;
using tavrin::ProcessIdentifier;
using tavrin::RunningApplication;

// Input.
using tavrin::EventField;
using tavrin::EventSource;
using tavrin::EventSourceSettings;
using tavrin::EventTap;
using tavrin::HotKeyEventHandler;
using tavrin::HotKeyIdentifier;
using tavrin::HotKeyReference;
using tavrin::KeyCode;
using tavrin::KeyEvent;
using tavrin::KeyHandling;
using tavrin::KeyPress;
using tavrin::ModifierFlags;
using tavrin::MouseEvent;
using tavrin::MouseEventType;
using tavrin::PreparedEvent;
using tavrin::SymbolicHotKey;

// Preferences.
using tavrin::DefaultsDomain;
using tavrin::DefaultsValue;

// The menu bar and what is shown.
using tavrin::AlertQuestion;
using tavrin::ButtonStyle;
using tavrin::FocusStep;
using tavrin::KeyAction;
using tavrin::OnScreenWindow;
using tavrin::PopoverBehavior;
using tavrin::RecorderLook;
using tavrin::StatusItem;
using tavrin::StatusItemPress;
using tavrin::TemplateImage;
using tavrin::TextStyle;
using tavrin::Tone;
using tavrin::View;

} // namespace mac_model
