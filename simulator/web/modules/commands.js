import { CommandQueue } from "./command_queue.js";

// Sends the Mac what the person does, in order.

const unanswered = new Map(); // by the numbers of the commands, in order
const room = document.querySelector("#room"); // says how many commands are unanswered
let number = 0;
let complain = () => {};

const worker = new Worker(new URL("command_worker.js", import.meta.url), { type: "module" });
let queue = { add: (numbered) => worker.postMessage(numbered) };
worker.onmessage = ({ data }) => settle(data);
worker.onerror = sendFromHere;

export function onRefusal(handler) {
    complain = handler;
}

export function send(command) {
    return new Promise((resolve) => {
        number += 1;
        unanswered.set(number, { command, resolve });
        count();
        queue.add({ number, command });
    });
}

function settle({ number: answered, reply }) {
    const { resolve } = unanswered.get(answered);
    unanswered.delete(answered);
    count();
    if (!reply.ok) complain(reply.error);
    resolve(reply);
}

// A browser that has workers, but not here.
function sendFromHere() {
    worker.terminate();
    queue = new CommandQueue(settle);
    for (const [waiting, { command }] of unanswered) queue.add({ number: waiting, command });
}

function count() {
    room.dataset.waiting = String(unanswered.size);
}

count();
