import { h, show } from "./dom.js";
import { place, union } from "./geometry.js";
import { menuBar } from "./menu_bar.js";
import { surfaces } from "./surfaces.js";

// The room in which the displays stand. Everything is drawn in screen points and scaled as vectors and text, so that
// it stays sharp at any size of the window.

const margin = 22; // points around the displays
const scaleMax = 2;

export class Desk {
    constructor(room) {
        this.room = room;
        this.state = null;
        this.scale = 1;
        this.corner = [0, 0];
        new ResizeObserver(() => this.draw()).observe(room);
    }

    update(state) {
        this.state = state;
        this.draw();
    }

    draw() {
        const state = this.state;
        if (!state) return;
        if (state.screens.length === 0) return show(this.room, [h("p", { class: "no-screen" }, "No display is attached.")]);
        const frame = union(state.screens.map((screen) => screen.frame));
        this.scale = Math.min(scaleMax, (this.room.clientWidth - 2 * margin) / frame[2],
            (this.room.clientHeight - 2 * margin) / frame[3]);
        this.corner = [frame[0], frame[1]];
        show(this.room, [h("div", {
            class: "desk", key: "desk",
            style: { width: `${frame[2]}px`, height: `${frame[3]}px`, transform: `scale(${this.scale})`,
                left: `${(this.room.clientWidth - frame[2] * this.scale) / 2}px`,
                top: `${(this.room.clientHeight - frame[3] * this.scale) / 2}px` },
        },
        state.screens.map((screen, index) => h("div", { class: "bezel", key: `bezel-${index}`, style: place(screen.frame, this.corner) })),
        state.screens.map((screen, index) => this.screen(screen, index)),
        h("div", { class: "surfaces", key: "surfaces" }, surfaces(state, this.corner)),
        this.arrow())]);
        this.followFocus();
    }

    // The browser's focus follows the Mac's, so that assistive technology hears of it.
    followFocus() {
        const focused = this.room.querySelector(".view.focused");
        const isHere = document.activeElement === document.body || this.room.contains(document.activeElement);
        if (focused && isHere && document.activeElement !== focused) focused.focus({ preventScroll: true });
    }

    screen(screen, index) {
        return h("section", {
            class: "screen", key: `screen-${index}`, "aria-label": `Display ${index + 1}`, style: place(screen.frame, this.corner),
        }, menuBar(this.state, screen, this.state.screens[0]));
    }

    // The Mac's pointer, where it isn't the hand that moves it.
    arrow() {
        const { at, visible } = this.state.pointer;
        const isMovedByHand = this.hand && Math.abs(this.hand[0] - at[0]) < 3 && Math.abs(this.hand[1] - at[1]) < 3;
        if (!visible || isMovedByHand || !this.hand) return null;
        return h("svg", {
            class: "arrow-pointer", key: "arrow", viewBox: "0 0 14 20", "aria-hidden": "true",
            style: { left: `${at[0] - this.corner[0]}px`, top: `${at[1] - this.corner[1]}px` },
        }, h("path", { d: "M1 1v15l3.7-3.3 2.3 5.6 2.8-1.2-2.3-5.4h4.9z" }));
    }

    // Screen points of a place in the window.
    pointAt(event) {
        const bounds = this.room.firstElementChild?.getBoundingClientRect();
        if (!bounds) return null;
        const round = (value) => Math.round(value * 4) / 4;
        return [round((event.clientX - bounds.left) / this.scale + this.corner[0]),
            round((event.clientY - bounds.top) / this.scale + this.corner[1])];
    }
}
