// What nobody outside Apple knows for sure about macOS, as questions with the answers that the modelled Mac can give.

export const uncertainties = [
    { name: "zeroPosition", question: "Where does an item with the stored place 0 go?",
        answers: [["rightmost", "far right"], ["leftmost", "far left"]] },
    { name: "longItem", question: "What does a very long item do to those left of it?",
        answers: [["pushes", "pushes them off the screen"], ["stopsAtMenus", "stops at the menus"]] },
    { name: "revokedAccess", question: "How do calls fail once access is revoked?",
        answers: [["apiDisabled", "at once"], ["timesOut", "each by its time-out"]] },
    { name: "permissionNotice", question: "When is access known to have changed?",
        answers: [["prompt", "with the notice"], ["stale", "0.8 s after the notice"]] },
    { name: "emptyExtras", question: "What is said of an application without items?",
        answers: [["noValue", "there is no value"], ["unsupported", "it isn’t supported"]] },
    { name: "closedMenus", question: "Does a closed menu list its entries?",
        answers: [["listed", "yes"], ["empty", "no"]] },
    { name: "offscreenFrames", question: "Where are items said to be that are off the screen?",
        answers: [["true", "where they are"], ["clamped", "at x = −1"]] },
    { name: "removal", question: "What becomes of the place of a removed item?",
        answers: [["forgetsPosition", "it is forgotten"], ["keepsPosition", "it is kept"]] },
    { name: "activation", question: "What becomes of Tavrin’s request to be the active application?",
        answers: [["declined", "it is declined"], ["granted", "granted at once"], ["late", "granted 0.5 s later"]] },
    { name: "placement", question: "When does macOS 26 give a new item its place?",
        answers: [["slow", "after 1.2 s"], ["prompt", "at once"], ["verySlow", "after 4 s"]] },
];
