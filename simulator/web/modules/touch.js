// A finger as the hand: a tap clicks, a longer touch clicks with the right button, and a finger that moves drags what it
// began on. Over a list it scrolls; where nothing of the Mac is, it moves the Mac itself, if that is larger than its room. Two
// fingers belong to the browser, which enlarges the page with them; the Mac hears nothing of either.

const restRadius = 8; // pixels that a resting finger may move
const longTouchMilliseconds = 500;

export class Touch {
    // `hand` presses, moves, releases and scrolls on the Mac at places in the window.
    constructor(hand, room) {
        this.hand = hand;
        this.room = room;
        this.finger = null;
    }

    pressed(event) {
        event.preventDefault(); // else the browser goes on as if a mouse had done it
        if (!event.isPrimary) return this.cancelled();
        this.finger = { id: event.pointerId, began: event, last: event, act: "rests" };
        this.timer = setTimeout(() => this.restedLong(), longTouchMilliseconds);
    }

    moved(event) {
        const { finger } = this;
        if (finger?.id !== event.pointerId) return;
        if (finger.act === "rests" && travelled(finger.began, event) > restRadius) this.beginMoving();
        if (finger.act === "drags") this.hand.move(event);
        if (finger.act === "scrolls") this.hand.scroll(finger.last, finger.last.clientY - event.clientY);
        if (finger.act === "pans") this.room.scrollBy(finger.last.clientX - event.clientX, finger.last.clientY - event.clientY);
        finger.last = event;
    }

    beginMoving() {
        const { finger } = this;
        clearTimeout(this.timer);
        finger.act = this.actOn(finger.began.target);
        if (finger.act === "drags") this.hand.press(finger.began, "left");
    }

    actOn(element) {
        if (element.closest(".scroll:has(> .scroll-thumb)")) return "scrolls";
        const isOnMac = element.closest(".surface, .menu-title, .status-item") !== null;
        return isOnMac || !this.room.classList.contains("scrolls") ? "drags" : "pans";
    }

    released(event) {
        const { finger } = this;
        if (finger?.id !== event.pointerId) return;
        this.forget();
        if (finger.act === "rests") this.click(finger.began, "left");
        if (finger.act === "drags") this.hand.release(event, "left");
    }

    restedLong() {
        this.finger.act = "done";
        this.click(this.finger.began, "right");
    }

    cancelled() {
        const { finger } = this;
        this.forget();
        if (finger?.act === "drags") this.hand.release(finger.last, "left");
    }

    click(event, button) {
        this.hand.press(event, button);
        this.hand.release(event, button);
    }

    forget() {
        clearTimeout(this.timer);
        this.finger = null;
    }
}

const travelled = (one, other) => Math.hypot(other.clientX - one.clientX, other.clientY - one.clientY);
