// A small keyed reconciler: what is to be shown is described by `h` and brought into the document by `show`,
// which keeps elements (and with them focus and hover) whose tag and key stay.

const svgTags = new Set(["svg", "use", "path", "rect", "circle"]);
const svgNamespace = "http://www.w3.org/2000/svg";

export function h(tag, properties, ...children) {
    return { tag, properties: properties ?? {}, children: children.flat().filter((child) => child !== null && child !== undefined && child !== false) };
}

// Describes each thing once: of what is the same object as before, `show` sees that nothing has changed.
export function kept(describe) {
    const descriptions = new WeakMap();
    return (thing) => {
        if (!descriptions.has(thing)) descriptions.set(thing, describe(thing));
        return descriptions.get(thing);
    };
}

function create(node) {
    if (typeof node !== "object") return document.createTextNode(String(node));
    const element = svgTags.has(node.tag) ? document.createElementNS(svgNamespace, node.tag) : document.createElement(node.tag);
    element.shown = { properties: {}, children: [] };
    return element;
}

function isSame(element, node) {
    if (typeof node !== "object") return element.nodeType === Node.TEXT_NODE;
    return element.nodeType === Node.ELEMENT_NODE && element.localName === node.tag
        && element.shown?.properties.key === node.properties.key;
}

function setProperty(element, name, value) {
    if (name === "key") return;
    if (name === "style") {
        element.style.cssText = "";
        for (const [property, setting] of Object.entries(value ?? {})) element.style.setProperty(property, setting);
    } else if (name.startsWith("on")) element[name] = value ?? null;
    else if (name === "checked" || name === "value") element[name] = value ?? (name === "checked" ? false : "");
    else if (value === undefined || value === null || value === false) element.removeAttribute(name);
    else element.setAttribute(name, value === true ? "" : value);
}

function isEqual(left, right) {
    if (left === right) return true;
    if (typeof left !== "object" || typeof right !== "object" || !left || !right) return false;
    const keys = Object.keys(left);
    return keys.length === Object.keys(right).length && keys.every((key) => left[key] === right[key]);
}

function update(element, node) {
    if (typeof node !== "object") {
        if (element.data !== String(node)) element.data = String(node);
        return;
    }
    // A description that is kept from one picture to the next says that nothing has changed.
    if (element.shown.node === node) return;
    element.shown.node = node;
    const before = element.shown.properties;
    const now = node.properties;
    for (const name in before) if (!(name in now)) setProperty(element, name, undefined);
    for (const name in now) {
        // A control's own state is changed by the browser too, so it is set each time.
        if (!isEqual(before[name], now[name]) || name === "checked") setProperty(element, name, now[name]);
    }
    element.shown.properties = now;
    show(element, node.children);
}

export function show(parent, nodes) {
    const keyed = new Map();
    for (const child of parent.childNodes) {
        const key = child.shown?.properties.key;
        if (key !== undefined) keyed.set(key, child);
    }
    let next = parent.firstChild;
    for (const node of nodes) {
        const key = typeof node === "object" ? node.properties.key : undefined;
        let element = key !== undefined ? keyed.get(key) : next;
        if (element && !isSame(element, node)) element = null;
        if (element) keyed.delete(key);
        else element = create(node);
        if (element === next) next = next.nextSibling;
        else parent.insertBefore(element, next);
        update(element, node);
    }
    while (next) {
        const rest = next.nextSibling;
        next.remove();
        next = rest;
    }
}

export function icon(picture, className = "glyph") {
    return h("svg", { class: className, viewBox: "0 0 24 24", "aria-hidden": "true" },
        h("use", { href: `#${picture}` }));
}
