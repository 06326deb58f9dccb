import { h, icon } from "./dom.js";
import { place } from "./geometry.js";
import { applicationIcon } from "./views.js";

export function menuEntry(entry, corner, state) {
    const style = place(entry.frame, corner);
    if (entry.separator) return h("div", { role: "separator", class: "menu-separator", style });
    const isCheckable = Boolean(entry.value) || entry.role === "AXCheckBox";
    return h("div", {
        role: isCheckable ? "menuitemcheckbox" : "menuitem", style,
        "aria-checked": isCheckable ? String(entry.checked === true) : undefined,
        "aria-disabled": entry.enabled === false ? "true" : undefined,
        "aria-haspopup": entry.submenu ? "menu" : undefined,
        class: `menu-entry${entry.highlighted ? " highlighted" : ""}${entry.enabled === false ? " disabled" : ""}`,
    },
    h("span", { class: "mark", "aria-hidden": "true" }, markOf(entry)),
    entry.icon && h("span", { class: "icon", "aria-hidden": "true" }, applicationIcon(entry.icon, state)),
    h("span", { class: "title" }, entry.text ?? ""),
    h("span", { class: "trailing", "aria-hidden": "true" },
        entry.submenu ? icon("chevron-right") : entry.key && h("kbd", {}, entry.key)));
}

function markOf({ value }) {
    return value === "✓" ? icon("check") : value ?? "";
}
