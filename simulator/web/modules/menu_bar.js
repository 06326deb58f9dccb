import { timeOfDay } from "./clock.js";
import { h, icon } from "./dom.js";
import { place } from "./geometry.js";
import { initialOf } from "./icons.js";
import { menuAsked, pressed } from "./presses.js";
import { pictureFor } from "./symbols.js";
import { fitting } from "./text_fit.js";

// The menu bar of one screen: menu titles at the left, status items at the right, the notch between.

export function menuBar(state, screen, index) {
    const [x, y, width] = screen.frame;
    const origin = [x, y];
    const titles = index === 0 ? state.menus : screen.menus ?? [];
    const items = itemsOn(state, screen);
    return h("header", { class: "menu-bar", key: "menu-bar", style: { height: `${screen.menuBarHeight}px` } },
        h("nav", { "aria-label": "Menu bar", role: "menubar" }, titles.map((title, number) =>
            menuTitle(title, origin, { menuTitle: number, screen: index }, state.openMenu === number))),
        h("div", { role: "group", "aria-label": "Status items" }, items.map((shown, number) =>
            keptStatusItem(shown, origin, number === items.length - 1))),
        screen.overflow && h("div", { class: "overflow", key: "overflow", style: place(screen.overflow, origin) }, "«"),
        notch(screen, origin),
        h("div", { class: "menu-bar-edge", style: { width: `${width}px` } }));
}

export const notch = (screen, origin) =>
    notchOf(screen) && h("div", { class: "notch", key: "notch", style: place(notchOf(screen), origin) });

export function notchOf(screen) {
    const { leftMenuBarArea: left, rightMenuBarArea: right } = screen;
    if (!left || !right) return null;
    const x = left[0] + left[2];
    return [x, screen.frame[1], right[0] - x, left[3]];
}

// One of the titles, and one of the status items, is where Tab leads to; the arrow keys go on from there.
function menuTitle({ title, frame }, origin, address, isOpen) {
    const number = address.menuTitle;
    const isSystemMenu = number === 0;
    return h("button", {
        key: `title-${number}`, type: "button", role: "menuitem", "aria-haspopup": "menu", "aria-expanded": String(isOpen),
        tabindex: isSystemMenu ? "0" : "-1", "aria-label": isSystemMenu ? "System menu" : undefined,
        class: `menu-title${isOpen ? " open" : ""}${number === 1 ? " of-application" : ""}`, style: place(frame, origin),
        onclick: pressed(address),
    }, isSystemMenu ? systemGlyph() : h("span", { dir: "auto" }, title));
}

// The mark of no one: a rounded square with a bar at its top.
const systemGlyph = () => h("svg", { class: "system-glyph", viewBox: "0 0 24 24", "aria-hidden": "true" },
    h("path", { d: "M7 3h10a4 4 0 0 1 4 4v10a4 4 0 0 1-4 4H7a4 4 0 0 1-4-4V7a4 4 0 0 1 4-4zm-1.5 4.2v1.6h13V7.200z" }));

// Since macOS 27 each screen has room for other items, and says which. Before, items keep their distance from the right edge
// on every screen. Only the primary screen's notch hides any: on another
// one they are seen, unless they would stand beyond its left edge.
function itemsOn(state, screen) {
    const primary = state.screens[0];
    if (screen.items) return hostedItemsOn(state, screen);
    const dx = screen.frame[0] + screen.frame[2] - primary.frame[0] - primary.frame[2];
    return keyed(state.menuBar).filter(({ item }) => {
        if (screen === primary || item.why === undefined) return item.drawn;
        return item.why === "notch" && item.frame[0] + dx >= screen.frame[0];
    }).map(({ item, key }) => ({
        item, key,
        frame: screen === primary ? item.frame : [item.frame[0] + dx, screen.frame[1], item.frame[2], screen.menuBarHeight],
    }));
}

function hostedItemsOn(state, screen) {
    const frames = new Map(screen.items.map(({ id, frame }) => [id, frame]));
    return keyed(state.menuBar).filter(({ item }) => frames.has(item.id)).map(({ item, key }) => {
        const [x, , itemWidth] = frames.get(item.id);
        return { item, key, frame: [x, screen.frame[1], itemWidth, screen.menuBarHeight] };
    });
}

export function keyed(items) {
    return items.map((item, index) => ({ item, key: item.id === undefined ? `item-${index}` : `item-${item.id}` }));
}

const isClock = (item) => item.autosaveName === "Clock" || item.identifier === "com.apple.menuextra.clock";

// A long item without anything on it is there to push others away.
const isBlank = (item, frame) => !item.symbol && !item.title?.trim() && !isClock(item) && frame[2] > 120;

// An item that hasn't changed is the same object as before, and is described once for each place.
const described = new WeakMap();

function keptStatusItem(shown, origin, isFirst) {
    const { item, frame, key } = shown;
    if (isClock(item)) return statusItem(shown, origin, isFirst);
    if (!described.has(item)) described.set(item, new Map());
    const places = described.get(item);
    const place = [key, origin, frame, isFirst].join();
    if (!places.has(place)) places.set(place, statusItem(shown, origin, isFirst));
    return places.get(place);
}

function statusItem({ item, frame, key }, origin, isFirst) {
    const hasNothing = isBlank(item, frame);
    const classes = ["status-item", item.open && "open", item.enabled === false && "disabled", item.carried && "carried", hasNothing && "blank",
        item.pill && "with-pill", frame[2] === 0 && "empty"].filter(Boolean).join(" ");
    const address = { statusItem: item.id };
    return h("button", {
        key, type: "button", class: classes, tabindex: isFirst ? "0" : "-1", "aria-hidden": hasNothing ? "true" : undefined,
        "aria-label": item.name.trim() || item.owner, "data-help": item.help, "aria-haspopup": "true", "aria-expanded": String(item.open === true),
        "aria-disabled": item.enabled === false ? "true" : undefined,
        "data-owner": item.owner, "data-identifier": item.identifier || item.autosaveName, style: place(frame, origin),
        onclick: pressed(address), oncontextmenu: menuAsked(address),
    },
    item.glow > 0 && h("span", { class: "glow", style: { opacity: String(item.glow) } }),
    item.pill && h("span", { class: "pill" }),
    h("span", { class: "face", style: { opacity: String(item.alpha ?? 1) } }, face(item, frame)));
}

function face(item, frame) {
    const picture = item.symbol ? pictureFor(item.symbol) : null;
    if (picture) return icon(picture);
    const title = isClock(item) ? timeOfDay() : item.title?.trim();
    if (title) return h("span", { class: "title", dir: "auto", style: { "letter-spacing": `${fitting(title, "body", frame[2] - 8)}px` } }, title);
    if (frame[2] < 8 || frame[2] > 120) return null;
    return h("span", { class: "monogram", "aria-hidden": "true" }, initialOf(item.name));
}
