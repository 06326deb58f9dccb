#include "platform/keyboard.h"
#include "seam_check/all_checks.h"
#include "seam_check/findings.h"
#include "seam_check/words.h"

#include <string>

namespace tavrin::seam_check {

namespace {

Verdict keysMakeCharacters(const Platform& platform) {
    const auto& keyboard = platform.keyboard;
    Findings findings;
    std::size_t silent = 0;
    for (const KeyCode key : {0U, 1U, 2U, 18U, 19U}) { // A, S, D, 1 and 2 on the US layout
        const auto character = keyboard.character(key);
        silent += character.empty();
        findings.expect(character == keyboard.character(key), "a key makes now this and now that");
        findings.expect(character.size() <= 8, "a key makes " + quoted(character));
    }
    if (silent == 5) return skipped("The input method has no layout.");
    findings.expect(silent == 0, std::to_string(silent) + " of five keys make nothing");
    return findings.verdict("Five keys make a character each.");
}

} // namespace

std::vector<Check> keyboardChecks() {
    return {reads("keyboard", "Keys make the characters of the layout.", keysMakeCharacters)};
}

} // namespace tavrin::seam_check
