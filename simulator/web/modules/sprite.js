// The pictures of all symbols come in one file. It is brought into the document once, so that a symbol is there in the
// same picture as what it belongs to.

export async function bringInSprite() {
    const response = await fetch(new URL("../icons/sprite.svg", import.meta.url));
    const sprite = new DOMParser().parseFromString(await response.text(), "image/svg+xml").documentElement;
    sprite.classList.add("sprite");
    sprite.setAttribute("aria-hidden", "true");
    document.body.append(document.adoptNode(sprite));
}
