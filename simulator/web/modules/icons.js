import { h, icon } from "./dom.js";
import { pictureFor } from "./symbols.js";

// A map, because an identifier may be any text, also "constructor".
const symbolOfApplication = new Map(Object.entries({
    "com.apple.controlcenter": "switch.2",
    "com.apple.systemuiserver": "menubar.rectangle",
    "com.apple.Spotlight": "magnifyingglass",
    "com.apple.TextInputMenuAgent": "keyboard",
    "com.apple.systempreferences": "gearshape",
    "com.apple.finder": "folder",
    "com.apple.notificationcenterui": "bell",
    "org.tavrin.Tavrin": "menubar.rectangle",
}));

const greyApplications = ["com.apple.systempreferences", "com.apple.systemuiserver", "com.apple.controlcenter"];

// The colour of an application's tile is its own, and always the same.
function hueOf(bundle) {
    let hue = 7;
    for (const character of bundle) hue = (hue * 31 + character.charCodeAt(0)) % 360;
    return hue;
}

// An application's icon: a tile in a colour of its own with what it shows in the menu bar, or its initial.
export function applicationIcon(bundle, state) {
    const item = state?.menuBar.find((candidate) => candidate.owner === bundle);
    const symbol = symbolOfApplication.get(bundle) ?? item?.symbol;
    const picture = symbol ? pictureFor(symbol) : null;
    return h("span", { class: `tile${greyApplications.includes(bundle) ? " grey" : ""}`, style: { "--hue": String(hueOf(bundle)) } },
        picture ? icon(picture) : h("b", {}, initialOf(nameOf(bundle, state))));
}

function nameOf(bundle, state) {
    const application = state?.surroundings?.applications.find(({ id }) => id === bundle);
    return application?.name ?? bundle.split(".").at(-1);
}

// The first letter that shows; a name of blanks has none.
export function initialOf(name) {
    return ([...(name ?? "").trim()][0] ?? "?").toUpperCase();
}
