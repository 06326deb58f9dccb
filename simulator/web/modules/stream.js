import { applied } from "./differences.js";

// Follows the Mac's state. After anything was missed it asks anew, and the server begins with a whole tree.
export function follow({ onWhole, onState, onTrace, onConnection }) {
    let state = null;
    let sequence = 0;
    let source = null;
    let wait = 250;

    function open() {
        source = new EventSource("stream");
        source.addEventListener("whole", (event) => {
            const message = JSON.parse(event.data);
            state = message.state;
            sequence = message.sequence;
            wait = 250;
            onConnection(true);
            onWhole(message.trace);
            onState(state);
        });
        source.addEventListener("change", (event) => {
            const message = JSON.parse(event.data);
            if (state === null || message.sequence !== sequence + 1) return again();
            state = applied(state, message.difference);
            sequence = message.sequence;
            if (message.trace) onTrace(message.trace);
            onState(state);
        });
        source.onerror = again;
    }

    function again() {
        source.close();
        state = null;
        onConnection(false);
        setTimeout(open, wait);
        wait = Math.min(wait * 2, 4000);
    }

    open();
}
