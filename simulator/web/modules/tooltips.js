// Help texts appear when the pointer rests, as on a Mac.

const restMilliseconds = 900;

export class Tooltips {
    constructor(room) {
        this.room = room;
        this.tip = document.createElement("div");
        this.tip.className = "tooltip";
        this.tip.setAttribute("role", "tooltip");
        this.tip.hidden = true;
        document.body.append(this.tip);
        room.addEventListener("pointermove", (event) => this.moved(event));
        for (const type of ["pointerdown", "pointerleave", "wheel", "keydown"]) room.addEventListener(type, () => this.hide());
    }

    moved(event) {
        this.hide();
        this.timer = setTimeout(() => this.showFor(event), restMilliseconds);
    }

    hide() {
        clearTimeout(this.timer);
        this.tip.hidden = true;
    }

    showFor({ clientX, clientY }) {
        const element = document.elementFromPoint(clientX, clientY)?.closest("[data-help]");
        const help = element?.dataset.help;
        if (!help) return;
        this.tip.textContent = help;
        this.tip.hidden = false;
        const { width, height } = this.tip.getBoundingClientRect();
        this.tip.style.left = `${Math.max(4, Math.min(clientX + 4, innerWidth - width - 4))}px`;
        this.tip.style.top = `${Math.min(clientY + 20, innerHeight - height - 4)}px`;
    }
}
