import { h, show } from "./dom.js";
import { clamped, distance, nearestIn, place, union } from "./geometry.js";
import { menuBar, notch } from "./menu_bar.js";
import { surfacesOn } from "./surfaces.js";
import { Zoom } from "./zoom.js";

// The room in which the displays stand. Everything is drawn in screen points and scaled as vectors and text, so that
// it stays sharp at any size of the window.

const margin = 22; // points around the displays

export class Desk {
    constructor(room, zoomElement) {
        this.room = room;
        this.zoom = new Zoom(zoomElement, () => this.draw());
        this.state = null;
        this.scale = 1;
        this.corner = [0, 0];
        this.tip = null;
        new ResizeObserver(() => this.draw()).observe(room);
        room.addEventListener("scroll", () => this.noteScroll());
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
        const isMoved = this.measure(frame);
        const size = { width: `${frame[2]}px`, height: `${frame[3]}px` };
        const hold = { width: `${(frame[2] + 2 * margin) * this.scale}px`, height: `${(frame[3] + 2 * margin) * this.scale}px` };
        show(this.room, [h("div", { class: "hold", key: "hold", style: hold }, h("div", {
            class: "desk", key: "desk",
            style: { ...size, transform: `scale(${this.scale})`, left: `${margin * this.scale}px`, top: `${margin * this.scale}px` },
        },
        state.screens.map((screen, index) => h("div", { class: "bezel", key: `bezel-${index}`, style: place(screen.frame, this.corner) })),
        state.screens.map((screen, index) => this.screen(screen, index)),
        this.arrow(), this.tip && tooltip(this.tip, this.corner, state)))]);
        if (isMoved) this.keepInSight();
        this.zoom.draw(this.scale);
        this.followFocus();
    }

    measure(frame) {
        const fitting = Math.min(this.room.offsetWidth / (frame[2] + 2 * margin), this.room.offsetHeight / (frame[3] + 2 * margin));
        const scale = this.zoom.scaleFor(fitting);
        const corner = [frame[0], frame[1]];
        const isMoved = scale !== this.scale || corner.join() !== this.corner.join();
        this.isWhole = scale <= fitting * 1.001;
        this.room.classList.toggle("scrolls", !this.isWhole);
        [this.scale, this.corner] = [scale, corner];
        return isMoved;
    }

    // Another size leaves in the middle what was there; at first that is the right end of the first menu bar.
    keepInSight() {
        const { room } = this;
        const [x, y] = this.lookedAt ?? this.beginning();
        room.scrollTo(x * room.scrollWidth - room.clientWidth / 2, y * room.scrollHeight - room.clientHeight / 2);
        this.lookedAt = [x, y];
    }

    beginning() {
        const [x, y, width] = this.state.screens[0].frame;
        const edge = [x - this.corner[0] + width + 2 * margin, y - this.corner[1]];
        const { scrollWidth, clientWidth, scrollHeight } = this.room;
        return [(edge[0] * this.scale - clientWidth / 2) / scrollWidth, (edge[1] * this.scale) / scrollHeight];
    }

    noteScroll() {
        const { room } = this;
        if (!this.isWhole) this.lookedAt = [(room.scrollLeft + room.clientWidth / 2) / room.scrollWidth, (room.scrollTop + room.clientHeight / 2) / room.scrollHeight];
    }

    // The browser's focus follows the Mac's, so that assistive technology hears of it. Where the Mac's has gone, the
    // browser's must not stay on what has taken that place.
    followFocus() {
        const focused = this.room.querySelector(".view.focused");
        const isHere = document.activeElement === document.body || this.room.contains(document.activeElement);
        if (focused && isHere && document.activeElement !== focused) focused.focus({ preventScroll: true });
        if (!focused && this.followed && document.activeElement === this.followed) this.room.focus({ preventScroll: true });
        this.followed = focused;
    }

    screen(screen, index) {
        const corner = [screen.frame[0], screen.frame[1]];
        const [lower, upper] = surfacesOn(this.state, index, corner);
        return h("section", {
            class: "screen", key: `screen-${index}`, "aria-label": `Display ${index + 1}`, style: place(screen.frame, this.corner),
        },
        h("div", { class: "surfaces", key: "lower" }, lower),
        this.state.world?.menuBarHidden ? notch(screen, corner) : menuBar(this.state, screen, index),
        h("div", { class: "surfaces", key: "upper" }, upper),
        this.curtain());
    }

    // What a locked screen and a sleeping display show instead of everything else.
    curtain() {
        const { screenLocked, displayAsleep } = this.state.world ?? {};
        if (displayAsleep) return h("div", { class: "curtain asleep", key: "curtain", role: "img", "aria-label": "The display is asleep" });
        return screenLocked && h("div", { class: "curtain locked", key: "curtain" }, h("p", {}, "Locked"));
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

    // Screen points of a place in the window. As on a Mac, the pointer stops at the edges of the displays.
    pointAt(event) {
        const bounds = this.room.querySelector(".desk")?.getBoundingClientRect();
        if (!bounds) return null;
        const point = [(event.clientX - bounds.left) / this.scale + this.corner[0], (event.clientY - bounds.top) / this.scale + this.corner[1]];
        const places = this.state.screens.map((screen) => nearestIn(screen.frame, point));
        const nearest = places.reduce((best, other) => (distance(other, point) < distance(best, point) ? other : best));
        return nearest.map((value) => Math.round(value * 4) / 4);
    }

    showTip(tip) {
        if (!tip && !this.tip) return;
        this.tip = tip;
        this.draw();
    }
}

const tipWidthMax = 260;
const letterWidth = 6.2; // points, roughly
const lineHeight = 15;

// Within the display that it belongs to. The browser wraps the text; where it may stand is reckoned from its length.
function tooltip({ text, at }, corner, { screens }) {
    const inside = screens.map(({ frame }) => frame).find((frame) => distance(nearestIn(frame, at), at) < 1) ?? screens[0].frame;
    const width = Math.min(tipWidthMax, text.length * letterWidth + 14);
    const height = Math.ceil((text.length * letterWidth) / (tipWidthMax - 14)) * lineHeight + 6;
    const x = clamped(at[0] + 4, inside[0] + 4, inside[0] + inside[2] - width - 4);
    const y = at[1] + 20 + height > inside[1] + inside[3] ? at[1] - height - 6 : at[1] + 20;
    return h("div", { class: "tooltip", key: "tip", role: "tooltip",
        style: { left: `${x - corner[0]}px`, top: `${y - corner[1]}px`, "max-width": `${tipWidthMax}px` } }, text);
}
