import { send } from "./commands.js";
import { h, kept, show } from "./dom.js";
import { Trace } from "./trace.js";
import { uncertainties } from "./uncertainties.js";

// The world around the Mac: what a person can't do by sitting in front of it. It is no part of the Mac and looks so.
// Nothing changes its place under the pointer, or turns into its opposite: what can't be done now stays and is dimmed.

const secondDisplay = { size: [1920, 1080], scale: 2 };
const newVersions = [26, 27];
const narrow = matchMedia("(max-width: 1000px)");

// What keeps a person from seeing the menu bar.
const unseen = [["menuBarHidden", "Menu bar hidden"], ["screenLocked", "Screen locked"], ["displayAsleep", "Display asleep"]];

export class Panel {
    constructor(element, input, room) {
        this.element = element;
        this.input = input;
        this.trace = new Trace();
        this.appearance = localStorage.getItem("appearance") ?? "system";
        this.folding = localStorage.getItem("panelIsFolded"); // as the person wants it; null before they said so
        this.systemAppearance = matchMedia("(prefers-color-scheme: dark)");
        this.systemAppearance.addEventListener("change", () => this.onAppearance());
        this.onAppearance = () => {};
        narrow.addEventListener("change", () => { this.folding = null; this.draw(); });
        this.leaveFocusWith(room);
    }

    // A press with the pointer leaves the keyboard with the Mac; only a person who comes by Tab has it in the panel.
    leaveFocusWith(room) {
        this.element.addEventListener("mousedown", (event) => event.target.closest("select, ol, ul") === null && event.preventDefault());
        this.element.addEventListener("change", (event) => event.target.matches("select") && room.focus({ preventScroll: true }));
    }

    isFolded() {
        return this.folding ? this.folding === "yes" : narrow.matches;
    }

    isDark() {
        return this.appearance === "dark" || (this.appearance === "system" && this.systemAppearance.matches);
    }

    update(state) {
        this.state = state;
        this.draw();
    }

    note(entries) {
        this.trace.add(entries);
    }

    restart(entries) {
        this.trace.restart(entries);
    }

    draw() {
        const { state } = this;
        if (!state?.surroundings) return;
        this.element.classList.toggle("folded", this.isFolded());
        const sections = this.isFolded() ? [] : [this.desktop(), this.program(), applications(this.state.surroundings.applications), this.hands(), this.uncertain(), this.trace.view()];
        show(this.element, [this.head(), ...sections]);
    }

    head() {
        const isFolded = this.isFolded();
        return h("div", { class: "panel-head", key: "head" },
            h("h2", {}, "Around the Mac"),
            h("button", {
                class: "fold", type: "button", "aria-expanded": String(!isFolded), onclick: () => this.fold(),
                "aria-label": isFolded ? "Show the panel" : "Hide the panel", title: isFolded ? "Show the panel" : "Hide the panel",
            }, isFolded ? "‹" : "›"));
    }

    fold() {
        this.folding = this.isFolded() ? "no" : "yes";
        localStorage.setItem("panelIsFolded", this.folding);
        this.draw();
    }

    desktop() {
        const { desktops, desktop, macOS, majorOfDesktop } = this.state.surroundings;
        const major = (value) => button(`macOS ${value}`, () => send({ do: "desktop", name: desktop, major: value }), { "aria-pressed": String(macOS === value) });
        const versions = [...new Set([majorOfDesktop ?? macOS, macOS, ...newVersions])].sort((one, other) => one - other);
        return h("section", { key: "desktop" }, h("h3", {}, "Mac"),
            h("label", {}, "Desktop file", h("select", {
                "aria-label": "Desktop file", onchange: (event) => send({ do: "desktop", name: event.target.value }),
            }, desktops.map((name) => h("option", { value: name, selected: name === desktop }, name)))),
            h("div", { class: "row" }, versions.map(major)),
            h("div", { class: "row" }, this.displayButtons()),
            h("label", {}, "Appearance", choice("Appearance", ["system", "light", "dark"], this.appearance, (value) => {
                this.appearance = value;
                localStorage.setItem("appearance", value);
                this.onAppearance();
            })),
            check("Reduce motion", this.state.world?.reducedMotion, (isOn) => send({ do: "set", reducedMotion: isOn })),
            unseen.map(([name, label]) => check(label, this.state.world?.[name], (isOn) => send({ do: "set", [name]: isOn }))));
    }

    displayButtons() {
        const { screens } = this.state;
        const right = screens.length > 0 ? Math.max(...screens.map(({ frame: [x, , width] }) => x + width)) : 0;
        const added = { frame: [right, 0, ...secondDisplay.size], scale: secondDisplay.scale };
        return [
            button("Attach display", () => send({ do: "set", screens: [...screens.map(screenSpec), added] }), dimmed(screens.length > 1)),
            button("Detach display", () => send({ do: "set", screens: screens.slice(0, 1).map(screenSpec) }), dimmed(screens.length < 2)),
        ];
    }

    program() {
        const { running, trusted } = this.state.world;
        return h("section", { key: "program" }, h("h3", {}, "Tavrin"),
            h("div", { class: "row" },
                button("Start", () => send({ do: "start" }), dimmed(running)),
                button("Quit", () => send({ do: "terminate" }), dimmed(!running)),
                button("Crash", () => send({ do: "crash" }), { ...dimmed(!running), title: "Its process ends at once" }),
                button("Open again", () => send({ do: "start" }), { ...dimmed(!running), title: "As when it is opened in the Finder while it runs" })),
            h("p", { class: "quiet" }, trusted ? "May use Accessibility." : "May not use Accessibility."),
            h("div", { class: "row" },
                button("Grant access", () => send({ do: "set", trusted: true }), dimmed(trusted)),
                button("Revoke access", () => send({ do: "set", trusted: false }), dimmed(!trusted))));
    }

    uncertain() {
        const { model } = this.state.world;
        return h("section", { key: "uncertain" },
            h("details", { key: "details" }, h("summary", {}, "What nobody knows for sure"),
                uncertainties.filter(({ name }) => name in model).map(({ name, question, answers }) =>
                    h("label", { class: "question", key: name }, h("span", {}, question),
                        h("select", { "aria-label": question, onchange: ({ target: { value } }) => send({ do: "set", model: { [name]: value === "true" ? true : value } }) },
                            answers.map(([value, text]) => h("option", { value, selected: value === String(model[name]) }, text)))))));
    }

    // Browsers keep some Command keys for themselves, and other keyboards have none.
    hands() {
        const isHeld = this.input.isCommandHeld;
        return h("section", { key: "hands" }, h("h3", {}, "Keyboard"),
            h("div", { class: "row" },
                button("Hold ⌘", () => { this.input.isCommandHeld = !isHeld; this.draw(); }, { "aria-pressed": String(isHeld) }),
                h("span", { class: "quiet" }, "for ⌘-drags and ⌘-keys")));
    }
}

const applications = kept((all) => h("section", { key: "applications" }, h("h3", {}, "Applications"),
    h("p", { class: "quiet" }, "“Hangs” answers nothing; “stays” lets nobody drag its items."),
    h("ul", { class: "applications", "aria-label": "Applications", tabindex: "0" }, all.map(application))));

const application = kept(({ id, name, running, responding, refusesDrags, hasItems }) => {
    const set = (change) => () => send({ do: "set", ...change });
    const stays = running && refusesDrags;
    const hangs = running && !responding;
    return h("li", { key: id, class: running ? "" : "gone" },
        h("span", { class: "name", title: `${name} (${id})` }, name),
        hasItems && button("stays", set({ refuseDrags: stays ? { [id]: "no" } : id }),
            { ...dimmed(!running), "aria-pressed": String(stays), title: "Refuse that its items are dragged", "aria-label": `Refuse drags of ${name}` }),
        button("hangs", set({ [hangs ? "resume" : "hang"]: id }),
            { ...dimmed(!running), "aria-pressed": String(hangs), title: "Answer nothing", "aria-label": `Hang ${name}` }),
        button("quit", set({ quit: id }), { ...dimmed(!running), "aria-label": `Quit ${name}` }),
        button("launch", () => send({ do: "relaunch", bundle: id }), { ...dimmed(running), "aria-label": `Launch ${name}` }));
});

// A screen as "set" takes it.
function screenSpec({ frame, scale, leftMenuBarArea, rightMenuBarArea, menuBarHeight }) {
    return leftMenuBarArea ? { frame, scale, leftMenuBarArea, rightMenuBarArea, menuBarHeight } : { frame, scale, menuBarHeight };
}

// What is only marked as disabled keeps the keyboard focus.
const dimmed = (isSo) => ({ "aria-disabled": isSo ? "true" : undefined });

function button(title, onclick, properties = {}) {
    const isDimmed = properties["aria-disabled"] === "true";
    return h("button", { type: "button", ...properties, onclick: isDimmed ? undefined : onclick }, title);
}

function choice(label, values, chosen, onChoice) {
    return h("select", { "aria-label": label, onchange: (event) => onChoice(event.target.value) },
        values.map((value) => h("option", { value, selected: value === chosen }, value)));
}

function check(title, isOn, onChange) {
    return h("label", { class: "plain" },
        h("input", { type: "checkbox", checked: isOn === true, onchange: (event) => onChange(event.target.checked) }), title);
}
