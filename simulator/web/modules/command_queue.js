// Commands go to the server one after the other, in order. A pointer move that still waits is dropped when a later
// command says where the pointer is.

export class CommandQueue {
    // `tell` gets {number, reply} for each command that was added.
    constructor(tell) {
        this.tell = tell;
        this.waiting = [];
        this.isSending = false;
    }

    add({ number, command }) {
        const last = this.waiting.at(-1);
        if (command.at && last?.command.do === "move") this.tell({ number: this.waiting.pop().number, reply: { ok: true } });
        this.waiting.push({ number, command });
        if (!this.isSending) this.sendWaiting();
    }

    async sendWaiting() {
        this.isSending = true;
        while (this.waiting.length > 0) {
            const { number, command } = this.waiting.shift();
            this.tell({ number, reply: await answered(command) });
        }
        this.isSending = false;
    }
}

async function answered(command) {
    try {
        const response = await fetch(new URL("../command", import.meta.url), {
            method: "POST",
            headers: { "Content-Type": "application/json" },
            body: JSON.stringify(command),
        });
        return await response.json();
    } catch {
        return { ok: false, error: "The modelled Mac doesn’t answer." };
    }
}
