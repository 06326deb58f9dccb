import { applied } from "./differences.js";

// Follows what the server says of the Mac. After anything was missed it asks anew, and the server begins with a whole tree.

const shortestWait = 250; // milliseconds
const longestWait = 4000;
const traceLengthMax = 300;

export class Feed {
    // `tell` gets {whole: {state, trace}}, {change: {difference, trace}}, or {lost: true}.
    constructor(tell) {
        this.tell = tell;
        this.state = null;
        this.trace = [];
        this.sequence = 0;
        this.isLost = false;
        this.wait = shortestWait;
        this.open();
    }

    // What a page needs that has come later; nothing before the first word.
    whole() {
        if (this.isLost) return { lost: true };
        return this.state && { whole: { state: this.state, trace: this.trace } };
    }

    open() {
        this.source = new EventSource(new URL("../stream", import.meta.url));
        this.source.addEventListener("whole", (event) => this.begin(JSON.parse(event.data)));
        this.source.addEventListener("change", (event) => this.goOn(JSON.parse(event.data)));
        this.source.onerror = () => this.again();
    }

    begin({ state, trace, sequence }) {
        Object.assign(this, { state, trace, sequence, wait: shortestWait, isLost: false });
        this.tell(this.whole());
    }

    goOn({ difference, trace, sequence }) {
        if (this.state === null || sequence !== this.sequence + 1) return this.again();
        this.sequence = sequence;
        this.state = applied(this.state, difference);
        if (trace) this.trace = [...this.trace, ...trace].slice(-traceLengthMax);
        this.tell({ change: { difference, trace } });
    }

    again() {
        this.source.close();
        this.state = null;
        this.isLost = true;
        this.tell({ lost: true });
        setTimeout(() => this.open(), this.wait);
        this.wait = Math.min(this.wait * 2, longestWait);
    }
}
