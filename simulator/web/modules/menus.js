import { h, icon } from "./dom.js";
import { place } from "./geometry.js";
import { pressed } from "./presses.js";
import { fitting } from "./text_fit.js";

// The rows of a menu; of one that is longer than its display those in sight, with arrows where there are more.
export function menuRows(menu, address) {
    const area = menu.shownRows ?? menu.frame;
    const rows = menu.children.map((entry, position) => menuEntry(entry, area, { ...address, path: [position] }));
    if (!menu.shownRows) return rows;
    return [
        menu.value > 0 && h("span", { class: "menu-arrow", "aria-hidden": "true" }, icon("chevron-up")),
        h("div", { class: "menu-rows", role: "presentation", style: place(area, menu.frame) }, rows),
        menu.value < menu.scrollMax && h("span", { class: "menu-arrow below", "aria-hidden": "true" }, icon("chevron-down")),
    ];
}

function menuEntry(entry, corner, address) {
    const style = place(entry.frame, corner);
    if (entry.separator) return h("div", { role: "separator", class: "menu-separator", style });
    const isCheckable = Boolean(entry.value) || entry.role === "AXCheckBox";
    return h("div", {
        role: isCheckable ? "menuitemcheckbox" : "menuitem", style, tabindex: "-1",
        "aria-checked": isCheckable ? String(entry.checked === true) : undefined,
        "aria-disabled": entry.enabled === false ? "true" : undefined,
        "aria-haspopup": entry.submenu ? "menu" : undefined,
        class: `menu-entry${entry.highlighted ? " highlighted" : ""}${entry.enabled === false ? " disabled" : ""}`,
        onclick: pressed({ ...address, text: entry.text }),
    },
    h("span", { class: "mark", "aria-hidden": "true" }, markOf(entry)),
    entry.picture && h("img", { class: "picture", alt: "", src: `data:image/png;base64,${entry.picture}` }),
    h("span", { class: "title", dir: "auto", style: { "letter-spacing": `${fitting(entry.text ?? "", "body", roomFor(entry))}px` } }, entry.text ?? ""),
    (entry.submenu || entry.key) && h("span", { class: "trailing", "aria-hidden": "true" },
        entry.submenu ? icon("chevron-right") : entry.key && h("kbd", {}, entry.key)));
}

const [markWidth, edgeWidth, pictureWidth, gapWidth, keyWidth] = [22, 14, 22, 8, 9];

function roomFor({ frame, picture, submenu, key }) {
    const trailing = submenu ? gapWidth + keyWidth : key ? gapWidth + keyWidth * key.length : 0;
    return frame[2] - markWidth - edgeWidth - (picture ? pictureWidth : 0) - trailing;
}

function markOf({ value }) {
    return value === "✓" ? icon("check") : value ?? "";
}
