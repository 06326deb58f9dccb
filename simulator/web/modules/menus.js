import { h, icon } from "./dom.js";
import { place } from "./geometry.js";
import { applicationIcon } from "./icons.js";
import { pressed } from "./presses.js";
import { fitting } from "./text_fit.js";

export function menuEntry(entry, corner, state, address) {
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
    entry.icon && h("span", { class: "icon", "aria-hidden": "true" }, applicationIcon(entry.icon, state)),
    h("span", { class: "title", dir: "auto", style: { "letter-spacing": `${fitting(entry.text ?? "", "body", roomFor(entry))}px` } }, entry.text ?? ""),
    (entry.submenu || entry.key) && h("span", { class: "trailing", "aria-hidden": "true" },
        entry.submenu ? icon("chevron-right") : entry.key && h("kbd", {}, entry.key)));
}

const [markWidth, edgeWidth, iconWidth, gapWidth, keyWidth] = [22, 14, 22, 8, 9];

function roomFor({ frame, icon: hasIcon, submenu, key }) {
    const trailing = submenu ? gapWidth + keyWidth : key ? gapWidth + keyWidth * key.length : 0;
    return frame[2] - markWidth - edgeWidth - (hasIcon ? iconWidth : 0) - trailing;
}

function markOf({ value }) {
    return value === "✓" ? icon("check") : value ?? "";
}
