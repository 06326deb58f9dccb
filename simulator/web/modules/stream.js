import { applied } from "./differences.js";
import { Feed } from "./feed.js";

// Brings the Mac's state to this page, shared with the browser's other pages where it can share.
export function follow({ onWhole, onState, onTrace, onConnection }) {
    let state = null;

    function told({ whole, change, lost }) {
        onConnection(!lost);
        if (lost) return;
        if (whole) onWhole(whole.trace);
        else if (change.trace) onTrace(change.trace);
        state = whole ? whole.state : applied(state, change.difference);
        onState(state);
    }

    if (!globalThis.SharedWorker) return new Feed(told);
    share(told);
    // A page that was put aside and is shown again has missed what came meanwhile.
    addEventListener("pageshow", (event) => event.persisted && share(told));
}

function share(told) {
    const worker = new SharedWorker(new URL("shared_feed.js", import.meta.url), { type: "module" });
    worker.port.onmessage = ({ data }) => told(data);
    worker.onerror = () => new Feed(told); // a browser that has shared workers, but not here
    addEventListener("pagehide", () => worker.port.postMessage("goes"), { once: true });
}
