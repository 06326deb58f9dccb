import { h } from "./dom.js";
import { overlap, place } from "./geometry.js";
import { menuRows } from "./menus.js";
import { pressed } from "./presses.js";
import { view } from "./views.js";

// Windows, panels, popovers, menus and alerts, from back to front.

const roleOfKind = { menu: "menu", alert: "alertdialog", hint: "tooltip" };
const kindsBelowMenuBar = ["window", "alert"];

// Those of one display, which cuts off what reaches beyond it: a list of what stands behind the menu bar, and one of
// what stands in front of it.
export function surfacesOn(state, screenIndex, origin) {
    const lists = [[], []];
    state.surfaces.forEach((surface, index) => {
        if (screenOf(surface, state.screens) !== screenIndex) return;
        const list = lists[kindsBelowMenuBar.includes(surface.kind) ? 0 : 1];
        list.push(surfaceElement(surface, index, origin, state));
    });
    return lists;
}

// As on a Mac whose displays have spaces of their own, a window is on the display that has the most of it.
function screenOf({ frame }, screens) {
    const shares = screens.map((screen) => overlap(screen.frame, frame));
    return Math.max(0, shares.indexOf(Math.max(...shares)));
}

function surfaceElement(surface, index, origin, state) {
    const corner = [surface.frame[0], surface.frame[1]];
    const closeButton = surface.children.find((child) => child.text === "close button" && child.role === "AXButton");
    return h("section", {
        key: `surface-${surface.id ?? index}`, role: roleOfKind[surface.kind] ?? "dialog",
        "aria-hidden": surface.kind === "drag" ? "true" : undefined,
        "aria-label": surface.title || nameOf(surface, state), "data-owner": surface.owner,
        class: `surface ${surface.kind}${surface.key ? " key" : ""}${closeButton ? " titled" : ""}`,
        style: { ...place(surface.frame, origin), "z-index": String(index + 1) },
    },
    surface.arrowX !== undefined && arrow(surface),
    h("div", { class: "ground" }),
    surface.kind === "menu" ? menuRows(surface, { surface: surface.id }) : surface.children.map((child, position) => {
        const address = { surface: surface.id, path: [position] };
        return child === closeButton ? titleBar(surface, closeButton, corner, address) : view(child, corner, state, address);
    }));
}

function nameOf(surface, state) {
    const item = state.menuBar.find((candidate) => candidate.owner === surface.owner);
    return item ? `${item.name} ${surface.kind}` : surface.kind;
}

function titleBar(surface, closeButton, corner, address) {
    return h("header", { class: "title-bar" },
        h("button", {
            type: "button", class: "light close", "aria-label": "Close", style: place(closeButton.frame, corner),
            onclick: pressed({ ...address, text: closeButton.text }),
        }, h("svg", { viewBox: "0 0 12 12", "aria-hidden": "true" }, h("path", { d: "M3.5 3.5l5 5m0-5l-5 5" }))),
        h("span", { class: "light minimise", style: place(shifted(closeButton.frame, 20), corner) }),
        h("span", { class: "light zoom", style: place(shifted(closeButton.frame, 40), corner) }),
        h("h1", { dir: "auto" }, surface.title));
}

const shifted = ([x, y, width, height], dx) => [x + dx, y, width, height];

function arrow(surface) {
    const x = Math.min(Math.max(surface.arrowX - surface.frame[0], 22), surface.frame[2] - 22);
    return h("svg", { class: "arrow", viewBox: "0 0 32 12", "aria-hidden": "true", style: { left: `${x - 16}px` } },
        h("path", { d: "M0 12c6 0 8-3 11-7 2.2-3 3.3-4.5 5-4.5s2.8 1.5 5 4.5c3 4 5 7 11 7z" }));
}
