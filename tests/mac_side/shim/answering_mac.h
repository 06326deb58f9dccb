#pragma once

#include "concurrency/signal.h"
#include "platform/platform.h"

/// The Mac for which the functions of Accessibility, Quartz, Carbon, CFPreferences and SMAppService answer in
/// this process: a modelled one, by its own implementations of the program's interfaces. While there is none
/// nothing is allowed, nothing else runs, and preferences and login items are this process's own. Main
/// thread.
const tavrin::Platform* answeringMac();

/// The newest that lives is the one that answers.
class AnswersFrom {
  public:
    explicit AnswersFrom(const tavrin::Platform& mac);
    AnswersFrom(const AnswersFrom&) = delete;
    AnswersFrom& operator=(const AnswersFrom&) = delete;
    ~AnswersFrom();

  private:
    const tavrin::Platform& mac_;
    tavrin::Subscription notices_;
};
