import { h, show } from "./dom.js";
import { clamped } from "./geometry.js";

// How large the Mac is drawn: by itself as large as the room lets it be, but never too small to read; the person's own
// steps and the browser's zoom come on top of that. What has no room then is scrolled to.

const scaleMin = 0.1;
const scaleMax = 6;
const legibleScale = 0.5;
const ownScaleMax = 2.5; // beyond which a large window needs no larger Mac
const step = 1.25;
const settlingMilliseconds = 200;

export class Zoom {
    constructor(element, onChange) {
        this.element = element;
        this.onChange = onChange;
        this.factor = 1;
        this.isFitted = false;
        this.scale = 1;
        this.kept = null; // the scale to keep at the next drawing
        this.followBrowser();
    }

    // When the browser zooms, the window has fewer of its larger pixels; on another display it keeps their number. Kept as
    // large in them as it was, the Mac grows and shrinks with the rest of the page.
    followBrowser() {
        let [density, width] = [devicePixelRatio, innerWidth];
        let timer = null;
        const settle = () => { [density, width] = [devicePixelRatio, innerWidth]; };
        const look = () => {
            clearTimeout(timer);
            timer = setTimeout(settle, settlingMilliseconds); // the two may change one after the other
            const ratio = devicePixelRatio / density;
            if (ratio === 1 || innerWidth === width || Math.abs(innerWidth * ratio - width) > 0.02 * width + 20) return;
            settle();
            this.kept = this.scale;
            this.onChange();
        };
        addEventListener("resize", look);
        const watchDensity = () => matchMedia(`(resolution: ${devicePixelRatio}dppx)`)
            .addEventListener("change", () => { watchDensity(); look(); }, { once: true });
        watchDensity();
    }

    // `fitting` is the scale at which all of the Mac is in sight.
    scaleFor(fitting) {
        const own = this.isFitted ? fitting : clamped(fitting, legibleScale, ownScaleMax);
        if (this.kept) this.factor = this.kept / own;
        this.kept = null;
        return clamped(own * this.factor, scaleMin, scaleMax);
    }

    change(factor) {
        this.factor = clamped(factor, 0.2, 8);
        this.onChange();
    }

    by(direction) {
        this.change(this.factor * step ** direction);
    }

    fit() {
        this.isFitted = true;
        this.change(1);
    }

    draw(scale) {
        this.scale = scale;
        const button = (title, label, onclick) => h("button", { type: "button", "aria-label": label, title: label, onclick }, title);
        show(this.element, [
            button("−", "Make the Mac smaller", () => this.by(-1)),
            button(`${Math.round(scale * 100)} %`, "Show the whole Mac", () => this.fit()),
            button("+", "Make the Mac larger", () => this.by(1)),
        ]);
    }
}
