import { everyMinute } from "./clock.js";
import { onRefusal } from "./commands.js";
import { Complaints } from "./complaints.js";
import { Desk } from "./desk.js";
import { Input } from "./input.js";
import { Panel } from "./panel.js";
import { bringInSprite } from "./sprite.js";
import { follow } from "./stream.js";
import { typeFactor } from "./text_fit.js";
import { Tooltips } from "./tooltips.js";

const room = document.querySelector("#room");
const connection = document.querySelector("#connection");
const desk = new Desk(room, document.querySelector("#zoom"));
const input = new Input(room, desk);
const panel = new Panel(document.querySelector("#panel"), input, room);
const complaints = new Complaints(document.querySelector("#complaints"));
new Tooltips(room, desk);

const frameMilliseconds = 12;
let isDrawingAsked = false;
let drawnAt = 0;
let newest = null;

function draw() {
    isDrawingAsked = false;
    drawnAt = performance.now();
    const isDark = panel.isDark();
    document.documentElement.classList.toggle("dark", isDark);
    document.documentElement.classList.toggle("calm", newest.world?.reducedMotion === true);
    room.classList.toggle("pointer-hidden", newest.pointer.visible === false);
    desk.update(newest);
    panel.update(newest);
}

// Without graphics hardware each picture is made by the processor, and what is costly there is drawn more simply.
function isDrawnByProcessor() {
    const context = document.createElement("canvas").getContext("webgl", { failIfMajorPerformanceCaveat: true });
    const names = context?.getExtension("WEBGL_debug_renderer_info");
    return !context || /swiftshader|llvmpipe|software/i.test(names ? context.getParameter(names.UNMASKED_RENDERER_WEBGL) : "");
}

function start() {
    document.documentElement.classList.toggle("by-processor", isDrawnByProcessor());
    document.documentElement.style.setProperty("--type", String(typeFactor()));
    follow({
        onWhole: (trace) => panel.restart(trace),
        onTrace: (entries) => panel.note(entries),
        onState(state) {
            newest = state;
            if (isDrawingAsked) return;
            // The first of several changes is drawn at once, so that it is in the next picture; the others share one.
            if (performance.now() - drawnAt > frameMilliseconds) return draw();
            isDrawingAsked = true;
            requestAnimationFrame(draw);
        },
        onConnection(isConnected) {
            connection.textContent = isConnected ? "" : "Waiting for the modelled Mac…";
            connection.classList.toggle("lost", !isConnected);
        },
    });
    everyMinute(() => newest && draw());
}

panel.onAppearance = () => newest && draw();
onRefusal((sentence) => complaints.say(sentence));
bringInSprite().catch(() => complaints.say("The symbols couldn’t be loaded.")).finally(start);
