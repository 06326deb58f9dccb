import { send } from "./commands.js";
import { h, show } from "./dom.js";
import { Trace } from "./trace.js";

// The world around the Mac: what a person can't do by sitting in front of it. It is no part of the Mac and looks so.

const uncertainChoices = {
    zeroPosition: ["rightmost", "leftmost"],
    longItem: ["pushes", "stopsAtMenus"],
    revokedAccess: ["apiDisabled", "timesOut"],
    permissionNotice: ["prompt", "stale"],
    emptyExtras: ["noValue", "unsupported"],
    closedMenus: ["listed", "empty"],
    offscreenFrames: ["true", "clamped"],
    removal: ["forgetsPosition", "keepsPosition"],
};

const secondDisplay = { size: [1920, 1080], scale: 2 };

export class Panel {
    constructor(element, input) {
        this.element = element;
        this.input = input;
        this.trace = new Trace();
        this.appearance = localStorage.getItem("appearance") ?? "system";
        this.isFolded = localStorage.getItem("panelIsFolded") === "yes";
        this.complaint = null;
        this.systemAppearance = matchMedia("(prefers-color-scheme: dark)");
        this.systemAppearance.addEventListener("change", () => this.onAppearance());
        this.onAppearance = () => {};
    }

    isDark() {
        return this.appearance === "dark" || (this.appearance === "system" && this.systemAppearance.matches);
    }

    complain(sentence) {
        this.complaint = sentence;
        clearTimeout(this.complaintTimer);
        this.complaintTimer = setTimeout(() => { this.complaint = null; this.draw(); }, 8000);
        this.draw();
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
        this.element.classList.toggle("folded", this.isFolded);
        show(this.element, [
            this.head(),
            this.complaint && h("section", { key: "complaint" }, h("p", { class: "complaint", role: "alert" }, this.complaint)),
            this.desktop(), this.program(), this.applications(), this.uncertain(), this.hands(), this.trace.view(),
        ].filter(Boolean));
    }

    head() {
        return h("div", { class: "panel-head", key: "head" },
            h("h2", {}, "Around the Mac"),
            h("button", {
                class: "fold", type: "button", "aria-expanded": String(!this.isFolded),
                "aria-label": this.isFolded ? "Show the panel" : "Hide the panel",
                onclick: () => this.fold(),
            }, this.isFolded ? "‹" : "›"));
    }

    fold() {
        this.isFolded = !this.isFolded;
        localStorage.setItem("panelIsFolded", this.isFolded ? "yes" : "no");
        this.draw();
    }

    desktop() {
        const { desktops, desktop, macOS } = this.state.surroundings;
        const major = (value) => button(`macOS ${value}`, () => send({ do: "desktop", name: desktop, major: value }), macOS === value);
        return h("section", { key: "desktop" }, h("h3", {}, "Mac"),
            h("label", {}, "Desktop file", h("select", {
                "aria-label": "Desktop file", onchange: (event) => send({ do: "desktop", name: event.target.value }),
            }, desktops.map((name) => h("option", { value: name, selected: name === desktop }, name)))),
            h("div", { class: "row" }, major(26), major(27), this.displayButton()),
            h("label", {}, "Appearance", this.choice("Appearance", ["system", "light", "dark"], this.appearance, (value) => {
                this.appearance = value;
                localStorage.setItem("appearance", value);
                this.onAppearance();
            })),
            check("Reduce motion", this.state.world?.reducedMotion, (isOn) => send({ do: "set", reducedMotion: isOn })));
    }

    displayButton() {
        const { screens } = this.state;
        if (screens.length > 1) return button("Detach display", () => send({ do: "set", screens: screens.slice(0, 1).map(screenSpec) }));
        const [x, , width] = screens[0]?.frame ?? [0, 0, 0];
        const added = { frame: [x + width, 0, ...secondDisplay.size], scale: secondDisplay.scale };
        return button("Attach display", () => send({ do: "set", screens: [...screens.map(screenSpec), added] }));
    }

    program() {
        const { running, trusted } = this.state.world;
        return h("section", { key: "program" }, h("h3", {}, "Tavrin"),
            h("div", { class: "row" },
                running ? button("Quit", () => send({ do: "terminate" })) : button("Start", () => send({ do: "start" })),
                running && button("Crash", () => send({ do: "crash" })),
                running && button("Open again", () => send({ do: "start" }))),
            h("div", { class: "row" },
                h("span", { class: "quiet" }, trusted ? "May use Accessibility." : "May not use Accessibility."),
                button(trusted ? "Revoke access" : "Grant access", () => send({ do: "set", trusted: !trusted }))));
    }

    applications() {
        return h("section", { key: "applications" }, h("h3", {}, "Applications"),
            h("ul", { class: "applications", "aria-label": "Applications" },
                this.state.surroundings.applications.map((application) => this.application(application))));
    }

    application({ id, name, running, responding, refusesDrags, hasItems }) {
        const set = (change) => () => send({ do: "set", ...change });
        return h("li", { key: id, class: running ? "" : "gone" },
            h("span", { class: "name", title: id }, name, running && !responding && h("b", { class: "quiet" }, " hangs")),
            running && hasItems && button(refusesDrags ? "stays put" : "movable", set({ refuseDrags: id }), undefined,
                { disabled: refusesDrags, title: "Refuse that its items are dragged", "aria-label": `Refuse drags of ${name}` }),
            running && button(responding ? "hang" : "resume", set({ [responding ? "hang" : "resume"]: id }), undefined,
                { "aria-label": `${responding ? "Hang" : "Resume"} ${name}` }),
            running ? button("quit", set({ quit: id }), undefined, { "aria-label": `Quit ${name}` })
                : button("launch", () => send({ do: "relaunch", bundle: id }), undefined, { "aria-label": `Launch ${name}` }));
    }

    uncertain() {
        const { model } = this.state.world;
        return h("section", { key: "uncertain" },
            h("details", { key: "details" }, h("summary", {}, "What nobody knows for sure"),
                Object.entries(uncertainChoices).filter(([name]) => name in model).map(([name, values]) =>
                    h("label", {}, name, this.choice(name, values, String(model[name]), (value) =>
                        send({ do: "set", model: { [name]: typeof model[name] === "boolean" || value === "true" ? true : value } }))))));
    }

    choice(label, values, chosen, onChoice) {
        return h("select", { "aria-label": label, onchange: (event) => onChoice(event.target.value) },
            values.map((value) => h("option", { value, selected: value === chosen }, value)));
    }

    // Browsers keep some Command keys for themselves, and other keyboards have none.
    hands() {
        return h("section", { key: "hands" }, h("h3", {}, "Keyboard"),
            h("div", { class: "row" },
                button("Hold ⌘", () => { this.input.isCommandHeld = !this.input.isCommandHeld; this.draw(); }, this.input.isCommandHeld),
                h("span", { class: "quiet" }, "for ⌘-drags and ⌘-keys")));
    }
}

// A screen as "set" takes it.
function screenSpec({ frame, scale, leftMenuBarArea, rightMenuBarArea, menuBarHeight }) {
    return leftMenuBarArea ? { frame, scale, leftMenuBarArea, rightMenuBarArea, menuBarHeight } : { frame, scale, menuBarHeight };
}

function button(title, onclick, isPressed, properties = {}) {
    return h("button", { type: "button", onclick, "aria-pressed": isPressed === undefined ? undefined : String(isPressed), ...properties }, title);
}

function check(title, isOn, onChange) {
    return h("label", { class: "plain" },
        h("input", { type: "checkbox", checked: isOn === true, onchange: (event) => onChange(event.target.checked) }), title);
}
