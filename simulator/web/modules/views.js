import { h, icon } from "./dom.js";
import { place } from "./geometry.js";
import { applicationIcon } from "./icons.js";
import { pressed } from "./presses.js";
import { pictureFor } from "./symbols.js";
import { fitting } from "./text_fit.js";

// Views come laid out: each stands exactly at its frame, and the browser lays out nothing. Roles become elements
// of the document, so that names and roles reach the browser's accessibility tree.

// `address` says which view it is: the surface, and the positions of children that lead to it.
export function view(node, parentOrigin, state, address) {
    const origin = [node.frame[0], node.frame[1]];
    const draw = drawings[node.role] ?? ((group) => drawGroup(group));
    const { tag, properties = {}, content = [] } = draw(node, state, address);
    const classes = ["view", properties.class, node.tone && `tone-${node.tone}`, node.focused && "focused",
        node.highlighted && "drop-target", node.draggable && "draggable"];
    const children = node.children ?? [];
    const keys = keysOf(children);
    return h(tag, {
        ...labels(node), tabindex: node.focusable ? "-1" : undefined, ...properties, class: classes.filter(Boolean).join(" "),
        style: { ...place(node.frame, parentOrigin), ...properties.style },
    }, content, children.map((child, index) => {
        const element = view(child, origin, state, { ...address, path: [...address.path, index] });
        element.properties.key = keys[index];
        return element;
    }));
}

// What can have the focus keeps its element wherever it moves to, so that the focus never stays on another.
function keysOf(nodes) {
    const counts = new Map();
    return nodes.map((node) => {
        if (!["AXButton", "AXCheckBox", "AXGroup", "AXRow", "AXTextField"].includes(node.role)) return undefined;
        const name = `${node.role} ${nameIn(node)}`;
        counts.set(name, (counts.get(name) ?? 0) + 1);
        return `${name} ${counts.get(name)}`;
    });
}

function nameIn(node) {
    if (node.label ?? node.text) return node.label ?? node.text;
    for (const child of node.children ?? []) {
        const name = nameIn(child);
        if (name) return name;
    }
    return "";
}

function labels(node) {
    const label = node.label ?? (node.role === "AXStaticText" ? undefined : node.text);
    const rowActions = node.role === "AXGroup" ? node.actions?.join(", ") : undefined;
    return {
        "aria-label": label || node.help || undefined,
        "aria-description": node.help && node.help !== label ? node.help : rowActions || undefined,
        "data-help": node.help,
    };
}

const drawings = {
    AXStaticText: drawText,
    AXButton: drawButton,
    AXCheckBox: drawCheckbox,
    AXImage: drawImage,
    AXScrollArea: drawScroll,
    AXSplitter: () => ({ tag: "hr", properties: { class: "divider" } }),
    AXBusyIndicator: () => ({
        tag: "div", properties: { class: "progress", role: "progressbar", "aria-label": "Busy" },
        content: Array.from({ length: 8 }, (_, index) => h("i", { style: { rotate: `${index * 45}deg` } })),
    }),
    AXTextField: drawTextField,
    AXSlider: (node) => ({ tag: "div", properties: { class: "slider", role: "slider", "aria-valuenow": node.value } }),
    AXList: (node) => drawGroup(node, "list"),
    AXRow: (node) => drawGroup(node, "listitem"),
};

function drawGroup(node, role) {
    return {
        tag: "div",
        properties: { class: node.card ? "card" : undefined, role: role ?? (node.text || node.label ? "group" : undefined) },
    };
}

const styleSizes = { body: 13, title: 22, heading: 15, caption: 11 };

export function linesOf(node, indent = 0) {
    const style = node.textStyle ?? "body";
    return (node.lines ?? [node.text ?? ""]).map((line) => {
        const spacing = fitting(line, style, node.frame[2] - indent);
        return h("span", { class: "line", dir: "auto", style: spacing ? { "letter-spacing": `${spacing}px` } : {} }, line || "\u00a0"); // an empty line takes its room
    });
}

const tagOfStyle = { title: "h2", heading: "h3" };

function drawText(node) {
    const style = node.textStyle ?? "body";
    return {
        tag: tagOfStyle[style] ?? "p",
        properties: { class: `text style-${style}${node.centered ? " centered" : ""}` },
        content: linesOf(node),
    };
}

function drawButton(node, _, address) {
    return {
        tag: "button",
        properties: {
            type: "button", class: `button ${node.default ? "prominent" : node.buttonStyle ?? "bordered"}`,
            disabled: node.enabled === false, onclick: pressed({ ...address, text: node.text }), ...recorderProperties(node),
        },
        content: [node.symbol && symbol(node), isTitled(node) && h("span", { class: "title" }, node.text)],
    };
}

// A shortcut recorder is a button whose title is its value.
function recorderProperties(node) {
    if (node.value === undefined) return {};
    return { class: `button recorder${node.recording ? " recording" : ""}`, "aria-description": node.value,
        "aria-pressed": node.recording ? "true" : "false" };
}

// Without a title of its own a control's text is what a screen reader says.
const isTitled = (node) => node.titled !== false && Boolean(node.text);

function drawCheckbox(node, _, address) {
    return {
        tag: "label",
        properties: { class: `checkbox${node.enabled === false ? " disabled" : ""}`, "aria-label": undefined },
        content: [
            h("input", {
                type: "checkbox", checked: node.checked === true, disabled: node.enabled === false,
                "aria-label": node.label ?? node.text, onclick: pressed({ ...address, text: node.text }),
            }),
            h("span", { class: "box", "aria-hidden": "true" }, node.checked && icon("check")),
            isTitled(node) && h("span", { class: "title", "aria-hidden": "true" }, linesOf(node, 20)),
        ],
    };
}

function drawTextField(node) {
    return {
        tag: "input",
        properties: { type: "text", class: "text-field", value: node.value ?? node.text ?? "", readonly: true,
            placeholder: node.placeholder, disabled: node.enabled === false },
    };
}

function drawScroll(node) {
    const room = node.frame[3];
    const total = room + (node.scrollMax ?? 0);
    const thumb = node.scrollMax > 0 && h("span", {
        class: "scroll-thumb", "aria-hidden": "true",
        style: { height: `${Math.max(24, (room * room) / total)}px`,
            top: `${((node.value ?? 0) / node.scrollMax) * (room - Math.max(24, (room * room) / total))}px` },
    });
    return { tag: "div", properties: { class: "scroll", role: "group" }, content: [thumb] };
}

function drawImage(node, state) {
    const role = node.text ? "img" : undefined;
    const hidden = node.text ? undefined : "true";
    if (node.icon) return { tag: "span", properties: { class: "icon", role, "aria-hidden": hidden }, content: [applicationIcon(node.icon, state)] };
    return { tag: "span", properties: { class: "symbol", role, "aria-hidden": hidden }, content: [symbol(node)] };
}

function symbol(node) {
    const picture = pictureFor(node.symbol);
    if (!picture) return null;
    const size = (node.pointSize ?? styleSizes[node.textStyle ?? "body"]) * 1.15;
    const element = icon(picture);
    element.properties.style = { width: `${size}px`, height: `${size}px` };
    return element;
}
