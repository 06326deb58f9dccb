import { h } from "./dom.js";

// What Tavrin posted and stored and was told, and what other applications' menus ran, newest first.

const lengthMax = 300;
const kinds = ["posted", "stored", "told", "chose"];

export class Trace {
    constructor() {
        this.entries = [];
        this.number = 0;
    }

    add(entries) {
        for (const entry of entries) this.entries.unshift({ ...entry, number: this.number++ });
        this.entries.length = Math.min(this.entries.length, lengthMax);
    }

    restart(entries) {
        this.entries = [];
        this.add(entries);
    }

    view() {
        return h("section", { key: "trace", class: "trace" },
            h("h3", {}, "Trace"),
            this.entries.length === 0 ? h("p", { class: "quiet", key: "none" }, "Nothing yet.")
                : h("ol", { "aria-label": "Trace", "aria-live": "off", key: "entries" }, this.entries.map(entryLine)));
    }
}

function entryLine({ time, kind, text, number }) {
    return h("li", { key: number, class: kinds.includes(kind) ? kind : "" },
        h("time", {}, `${time.toFixed(3)} s`), h("span", { class: "kind" }, kind), h("span", {}, text));
}
