import { h, icon } from "./dom.js";
import { place } from "./geometry.js";
import { pictureFor } from "./symbols.js";
import { fitting } from "./text_fit.js";

const clockFace = "Tue 14 Oct  9:41"; // of a clock that says nothing of itself

// The menu bar of one screen: menu titles at the left, status items at the right, the notch between.

export function menuBar(state, screen, primary) {
    const [x, y, width] = screen.frame;
    const origin = [x, y];
    return h("header", { class: "menu-bar", key: "menu-bar", style: { height: `${screen.menuBarHeight}px` } },
        h("nav", { "aria-label": "Menu bar", role: "menubar" },
            (screen === primary ? state.menus : screen.menus ?? []).map((title, index) =>
                menuTitle(title, index, origin, state.openMenu === index))),
        h("div", { role: "group", "aria-label": "Status items" },
            itemsOn(state, screen, primary).map(({ item, frame, key }) => statusItem(item, frame, key, origin))),
        notchOf(screen) && h("div", { class: "notch", key: "notch", style: place(notchOf(screen), origin) }),
        h("div", { class: "menu-bar-edge", style: { width: `${width}px` } }));
}

export function notchOf(screen) {
    const { leftMenuBarArea: left, rightMenuBarArea: right } = screen;
    if (!left || !right) return null;
    const x = left[0] + left[2];
    return [x, screen.frame[1], right[0] - x, left[3]];
}

function menuTitle({ title, frame }, index, origin, isOpen) {
    const isSystemMenu = index === 0;
    return h("div", {
        key: `title-${index}`, role: "menuitem", "aria-haspopup": "menu", "aria-expanded": String(isOpen),
        "aria-label": isSystemMenu ? "System menu" : undefined,
        class: `menu-title${isOpen ? " open" : ""}${index === 1 ? " of-application" : ""}`, style: place(frame, origin),
    }, isSystemMenu ? systemGlyph() : h("span", {}, title));
}

// The mark of no one: a rounded square with a bar at its top.
const systemGlyph = () => h("svg", { class: "system-glyph", viewBox: "0 0 24 24", "aria-hidden": "true" },
    h("path", { d: "M7 3h10a4 4 0 0 1 4 4v10a4 4 0 0 1-4 4H7a4 4 0 0 1-4-4V7a4 4 0 0 1 4-4zm-1.5 4.2v1.6h13V7.200z" }));

// Items keep their distance from the right edge on every screen.
function itemsOn(state, screen, primary) {
    const right = screen.frame[0] + screen.frame[2];
    const primaryRight = primary.frame[0] + primary.frame[2];
    return keyed(state.menuBar).filter(({ item }) => item.drawn).map(({ item, key }) => ({
        item, key,
        frame: screen === primary ? item.frame
            : [right - (primaryRight - item.frame[0]), screen.frame[1], item.frame[2], screen.menuBarHeight],
    }));
}

export function keyed(items) {
    return items.map((item, index) => ({ item, key: item.id === undefined ? `item-${index}` : `item-${item.id}` }));
}

function statusItem(item, frame, key, origin) {
    const isBlank = !item.symbol && !item.title && item.autosaveName !== "Clock" && frame[2] > 120;
    const classes = ["status-item", item.open && "open", item.enabled === false && "disabled", item.carried && "carried", isBlank && "blank",
        item.pill && "with-pill", frame[2] === 0 && "empty"].filter(Boolean).join(" ");
    return h("button", {
        key, type: "button", class: classes, tabindex: "-1", "aria-hidden": isBlank ? "true" : undefined,
        "aria-label": item.name, "data-help": item.help, "aria-haspopup": "true", "aria-expanded": String(item.open === true),
        "data-owner": item.owner, "data-identifier": item.identifier || item.autosaveName, style: place(frame, origin),
    },
    item.glow > 0 && h("span", { class: "glow", style: { opacity: String(item.glow) } }),
    item.pill && h("span", { class: "pill" }),
    h("span", { class: "face", style: { opacity: String(item.alpha ?? 1) } }, face(item, frame)));
}

function face(item, frame) {
    const picture = item.symbol ? pictureFor(item.symbol) : null;
    if (picture) return icon(picture);
    const title = item.title || (item.autosaveName === "Clock" ? clockFace : "");
    if (title) return h("span", { class: "title", style: { "letter-spacing": `${fitting(title, "body", frame[2] - 8)}px` } }, title);
    if (frame[2] < 8 || frame[2] > 120) return null;
    return h("span", { class: "monogram", "aria-hidden": "true" }, [...(item.name || "?")][0].toUpperCase());
}
