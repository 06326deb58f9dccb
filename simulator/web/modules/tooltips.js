// Help texts appear when the pointer rests, as on a Mac.

const restMilliseconds = 900;

export class Tooltips {
    constructor(room, desk) {
        this.desk = desk;
        room.addEventListener("pointermove", (event) => this.moved(event));
        for (const type of ["pointerdown", "pointerleave", "wheel", "keydown", "scroll"]) room.addEventListener(type, () => this.hide());
    }

    moved(event) {
        this.hide();
        this.timer = setTimeout(() => this.showFor(event), restMilliseconds);
    }

    hide() {
        clearTimeout(this.timer);
        this.desk.showTip(null);
    }

    showFor(event) {
        const element = document.elementFromPoint(event.clientX, event.clientY)?.closest("[data-help]");
        const text = element?.dataset.help;
        if (text) this.desk.showTip({ text, at: this.desk.pointAt(event) });
    }
}
