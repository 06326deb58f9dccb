// Commands go to the server one after the other, in order. A pointer move that still waits is dropped when a later
// command says where the pointer is.

const waiting = [];
const room = document.querySelector("#room"); // says how many commands are unanswered
room.dataset.waiting = "0";
let isSending = false;
let complain = () => {};

export function onRefusal(handler) {
    complain = handler;
}

export function send(command) {
    return new Promise((resolve) => {
        const last = waiting.at(-1);
        if (command.at && last?.command.do === "move") {
            last.resolve({ ok: true });
            waiting.pop();
        }
        waiting.push({ command, resolve });
        room.dataset.waiting = String(waiting.length);
        if (!isSending) sendWaiting();
    });
}

async function sendWaiting() {
    isSending = true;
    while (waiting.length > 0) {
        const { command, resolve } = waiting.shift();
        const reply = await answered(command);
        if (!reply.ok) complain(reply.error);
        resolve(reply);
    }
    isSending = false;
    room.dataset.waiting = "0";
}

async function answered(command) {
    try {
        const response = await fetch("command", {
            method: "POST",
            headers: { "Content-Type": "application/json" },
            body: JSON.stringify(command),
        });
        return await response.json();
    } catch {
        return { ok: false, error: "The modelled Mac doesn’t answer." };
    }
}
