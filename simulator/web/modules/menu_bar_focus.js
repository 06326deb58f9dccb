// The keyboard in the menu bar. As on a Mac, Control-F2 leads to the menus and Control-F8 to the status items; Tab does,
// too, where nothing else takes it. The arrow keys move on, and Escape leads back.

const groupOfKey = { F2: "nav .menu-title", F8: ".status-item:not(.blank)" };

export function focusMenuBar(event, room) {
    const group = event.ctrlKey ? groupOfKey[event.key] : undefined;
    if (!group) return false;
    const first = [...room.querySelectorAll(`.screen:first-of-type ${group}`)].find((item) => item.tabIndex === 0);
    first?.focus();
    return Boolean(first);
}

const fromLeftToRight = (items) => items.toSorted((one, other) => one.offsetLeft - other.offsetLeft);

export function moveInMenuBar(event, room) {
    const item = event.target.closest?.(".menu-title, .status-item");
    const isMenuOpen = room.querySelector(".surface.menu") !== null;
    if (!item || isMenuOpen || event.ctrlKey || event.altKey || event.metaKey) return false;
    const items = fromLeftToRight([...item.parentElement.querySelectorAll("button:not(.blank)")]);
    const step = { ArrowLeft: -1, ArrowRight: 1 }[event.key];
    if (step) items[(items.indexOf(item) + step + items.length) % items.length].focus();
    else if (event.key === "ArrowDown") item.click();
    else if (event.key === "Escape") room.focus({ preventScroll: true });
    return Boolean(step) || ["ArrowDown", "Escape"].includes(event.key);
}
