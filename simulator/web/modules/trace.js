import { h } from "./dom.js";

// What Tavrin posted and stored, was told and said to assistive technology, and what other applications' menus ran, newest first.

const lengthMax = 300;
const kinds = ["posted", "stored", "told", "said", "chose"];

export class Trace {
    constructor() {
        this.lines = [];
        this.number = 0;
    }

    add(entries) {
        for (const entry of entries) this.lines.unshift(line(entry, this.number++));
        this.lines.length = Math.min(this.lines.length, lengthMax);
    }

    restart(entries) {
        this.lines = [];
        this.add(entries);
    }

    view() {
        return h("section", { key: "trace", class: "trace" },
            h("h3", {}, "Trace"),
            this.lines.length === 0 ? h("p", { class: "quiet", key: "none" }, "Nothing yet.")
                : h("ol", { "aria-label": "Trace", "aria-live": "off", key: "entries" }, this.lines));
    }
}

function line({ time, kind, text }, number) {
    return h("li", { key: number, class: kinds.includes(kind) ? kind : "" },
        h("time", {}, `${time.toFixed(3)} s`), h("span", { class: "kind" }, kind), h("span", {}, text));
}
