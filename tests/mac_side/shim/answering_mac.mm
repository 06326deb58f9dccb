#include "answering_mac.h"

#include <utility>

namespace {
const tavrin::Platform* answering = nullptr;
} // namespace

const tavrin::Platform* answeringMac() { return answering; }

AnswersFrom::AnswersFrom(const tavrin::Platform& mac) : before_(std::exchange(answering, &mac)) {}

AnswersFrom::~AnswersFrom() { answering = before_; }
