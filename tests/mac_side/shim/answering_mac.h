#pragma once

#include "platform/platform.h"

/// The Mac for which the functions of Accessibility, Quartz, Carbon, CFPreferences and SMAppService answer in
/// this process: a modelled one, by its own implementations of the program's interfaces. While there is none
/// nothing is allowed, nothing else runs, and preferences and login items are this process's own. Main
/// thread.
const tavrin::Platform* answeringMac();

class AnswersFrom {
  public:
    explicit AnswersFrom(const tavrin::Platform& mac);
    AnswersFrom(const AnswersFrom&) = delete;
    AnswersFrom& operator=(const AnswersFrom&) = delete;
    ~AnswersFrom();

  private:
    const tavrin::Platform* before_;
};
