import { send } from "./commands.js";

// Assistive technology and the keyboard press a thing without the pointer: the Mac is told which one, by its place in
// what the Mac shows, so that it is that one wherever it is scrolled and whatever covers it.

export function pressed(address, action = "AXPress") {
    return (event) => {
        event.preventDefault();
        if (event.detail === 0) send({ do: "perform", ...address, action });
    };
}

// A context menu that no mouse asked for.
export function menuAsked(address) {
    return (event) => {
        if (event.button !== 2 && event.pointerType !== "touch") send({ do: "perform", ...address, action: "AXShowMenu" });
    };
}
