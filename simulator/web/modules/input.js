import { send } from "./commands.js";
import { focusMenuBar, moveInMenuBar } from "./menu_bar_focus.js";
import { Touch } from "./touch.js";

// What the person does with pointer and keyboard over the displays goes to the Mac as it happens; the browser itself
// reacts to nothing there.

const modifierOfProperty = { ctrlKey: "control", altKey: "option", shiftKey: "shift", metaKey: "command" };
const keyNames = {
    Enter: "return", Escape: "escape", ArrowUp: "up", ArrowDown: "down", ArrowLeft: "left", ArrowRight: "right",
    " ": "space", Tab: "tab", Backspace: "delete", Delete: "forwardDelete", Home: "home", End: "end",
    PageUp: "pageUp", PageDown: "pageDown",
};
const charactersOfCodes = {
    Comma: ",", Period: ".", Slash: "/", Semicolon: ";", Quote: "'", BracketLeft: "[", BracketRight: "]", Backslash: "\\",
    Minus: "-", Equal: "=", Backquote: "`",
};

// The character on the key itself: Shift and Option make others of it, which the Mac would look for in vain.
function characterOn(event) {
    if (event.key.length === 1 && (/^[a-z0-9]$/i.test(event.key) || !(event.shiftKey || event.altKey))) return event.key.toLowerCase();
    return event.code.match(/^(?:Key|Digit)(.)$/)?.[1].toLowerCase() ?? charactersOfCodes[event.code] ?? null;
}

// Function keys by themselves stay with the browser, which reloads and searches with them.
function keyOf(event, isForRecorder) {
    if (/^F\d+$/.test(event.key)) return isForRecorder ? event.key.toLowerCase() : null;
    return keyNames[event.key] ?? characterOn(event);
}
const buttonNames = { 0: "left", 2: "right" };

// On other computers than Macs the Command key is often taken: the page offers a key that stays held, and Control serves
// as well for a drag.
export class Input {
    constructor(room, desk) {
        this.desk = desk;
        this.room = room;
        this.isCommandHeld = false;
        this.held = new Set(); // buttons
        this.touch = new Touch(this, room);
        room.addEventListener("pointermove", (event) => this.receiverOf(event).moved(event));
        room.addEventListener("pointerdown", (event) => this.receiverOf(event).pressed(event));
        room.addEventListener("pointerup", (event) => this.receiverOf(event).released(event));
        room.addEventListener("pointercancel", (event) => this.receiverOf(event).cancelled(event));
        room.addEventListener("contextmenu", (event) => event.preventDefault());
        room.addEventListener("dragstart", (event) => event.preventDefault());
        room.addEventListener("wheel", (event) => this.scrolled(event), { passive: false });
        document.addEventListener("keydown", (event) => this.keyed(event));
    }

    modifiers(event) {
        const held = Object.entries(modifierOfProperty).filter(([property]) => event[property]).map(([, name]) => name);
        if (this.isCommandHeld && !held.includes("command")) held.push("command");
        return held;
    }

    receiverOf(event) {
        return event.pointerType === "touch" ? this.touch : this;
    }

    // Browsers give one move for each picture that they draw.
    moved(event) {
        this.move(event);
    }

    pressed(event) {
        const button = buttonNames[event.button];
        if (!button) return;
        event.preventDefault();
        this.room.setPointerCapture(event.pointerId);
        this.press(event, button);
    }

    released(event) {
        const button = buttonNames[event.button];
        if (button) this.release(event, button);
    }

    cancelled(event) {
        for (const button of this.held) this.release(event, button);
    }

    move(event) {
        const at = this.desk.pointAt(event);
        if (!at) return;
        this.desk.hand = at;
        send({ do: "move", at });
    }

    press(event, button) {
        const at = this.desk.pointAt(event);
        if (!at) return;
        this.room.focus({ preventScroll: true });
        this.desk.hand = at;
        this.held.add(button);
        send({ do: "down", at, button, modifiers: this.modifiers(event) });
    }

    release(event, button) {
        const at = this.desk.pointAt(event);
        this.held.delete(button);
        if (at) send({ do: "up", at, button });
    }

    // Pixels of the window; positive shows what lies further down.
    scroll(event, pixels) {
        this.move(event);
        return send({ do: "scroll", dy: -pixels / this.desk.scale, precise: true });
    }

    // Over the Mac the wheel belongs to what is under the pointer. What the Mac has no use for moves the page itself, where
    // the Mac is larger than its room; with Control, or two fingers apart on a trackpad, it makes the Mac larger.
    async scrolled(event) {
        event.preventDefault();
        const { deltaX, deltaY } = event;
        if (event.ctrlKey) return this.desk.zoom.change(this.desk.zoom.factor * Math.exp(-deltaY / 300));
        const reply = deltaY !== 0 && this.desk.pointAt(event) ? await this.scroll(event, deltaY) : {};
        if (!reply.handled) this.room.scrollBy(deltaX, deltaY);
    }

    keyed(event) {
        const isElsewhere = event.target !== document.body && !this.room.contains(event.target);
        if (isElsewhere || event.isComposing || ["Shift", "Control", "Alt", "Meta"].includes(event.key)) return;
        const isForRecorder = this.room.querySelector(".surface.key .recording") !== null;
        if (!isForRecorder && (focusMenuBar(event, this.room) || moveInMenuBar(event, this.room))) return event.preventDefault();
        if (!isForRecorder && this.isForBrowser(event)) return;
        const key = keyOf(event, isForRecorder);
        if (!key) return;
        event.preventDefault();
        if (event.repeat && ["space", "return"].includes(key)) return; // a held key acts once
        send({ do: "key", key, modifiers: this.modifiers(event) });
    }

    isForBrowser({ key, target }) {
        // A control that the Mac's own focus isn't on has the browser's, by Tab or assistive technology; it is pressed itself.
        const isPress = target.matches("button, input") && [" ", "Enter"].includes(key) && !target.closest(".view.focused");
        // Where the Mac's keyboard focus has nowhere to go, Tab leads through the page as everywhere.
        return isPress || (key === "Tab" && !this.room.querySelector(".surface.key .view[tabindex]"));
    }
}
