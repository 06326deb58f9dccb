// What the Mac has refused stands for a while where it is in nobody's way.

const secondsShown = 8;

export class Complaints {
    constructor(element) {
        this.element = element;
    }

    say(sentence) {
        this.element.textContent = sentence;
        clearTimeout(this.timer);
        this.timer = setTimeout(() => { this.element.textContent = ""; }, secondsShown * 1000);
    }
}
