// node bench/page.mjs PROGRAM: measures the page of the modelled Mac with 150 status items: how long it takes from a
// pointer event to the picture that it leads to, what the server uses while nothing happens, and how much is sent for
// each change. Needs what ./test --browser installs.
import { readFileSync } from "node:fs";
import { mkdtemp, rm, writeFile } from "node:fs/promises";
import { createRequire } from "node:module";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { MacPage, MacServer } from "../tests/browser/mac_page.mjs";

const { chromium } = createRequire(new URL("../tests/browser/package.json", import.meta.url))("playwright-core");
const [program] = process.argv.slice(2);
const items = 150;
const rounds = 120;
const idleSeconds = 20;

const entries = ["Open", "Pause", "Settings…", "Quit"].map((title) => ({ title }));
const desktop = {
    macOS: { major: 26 }, screens: [{ frame: [0, 0, 5120, 1440] }], accessibilityTrusted: false,
    applications: [
        { bundleIdentifier: "com.apple.finder", name: "Finder", processIdentifier: 400, policy: "regular",
            menuBar: [{ title: "File", items: entries }, { title: "Edit", items: entries }] },
        ...Array.from({ length: items }, (_, index) => ({
            bundleIdentifier: `org.example.item${index}`, name: `Item ${index}`, processIdentifier: 500 + index, policy: "accessory",
            statusItems: [{ width: 28, description: `Item ${index}`, symbol: "wifi", menu: entries, preferredPosition: 10 + index }],
        })),
    ],
};

const spread = (values) => {
    const sorted = values.toSorted((one, other) => one - other);
    const at = (part) => sorted[Math.min(sorted.length - 1, Math.floor(sorted.length * part))].toFixed(1);
    return `median ${at(0.5)}, 95 % under ${at(0.95)}, worst ${sorted.at(-1).toFixed(1)}`;
};

const processorSeconds = (process) => {
    const fields = readFileSync(`/proc/${process.pid}/stat`, "utf8").replace(/^.*\) /, "").split(" ");
    return (Number(fields[11]) + Number(fields[12])) / 100;
};

// What changes the document while the browser makes a picture is in that picture; what does so between pictures is in the
// next one. A task that is posted then runs when the picture has been handed over.
async function watchPictures(mac) {
    await mac.page.evaluate(() => {
        let isPictureBeingMade = false;
        const ask = window.requestAnimationFrame.bind(window);
        const later = (work) => { const channel = new MessageChannel(); channel.port1.onmessage = work; channel.port2.postMessage(0); };
        window.requestAnimationFrame = (work) => ask((time) => {
            isPictureBeingMade = true;
            later(() => { isPictureBeingMade = false; });
            work(time);
        });
        window.afterPicture = (work) => (isPictureBeingMade ? later(work) : ask(() => later(work)));
    });
}

// From the browser's own time of the event until the picture with what it leads to.
async function pressesToMenus(mac) {
    await mac.page.evaluate(() => {
        window.latencies = [];
        let began = 0;
        addEventListener("pointerdown", (event) => { began = event.timeStamp; }, true);
        new MutationObserver((changes) => {
            const isMenu = changes.some((change) => [...change.addedNodes].some((node) => node.classList?.contains("menu")));
            if (isMenu) window.afterPicture(() => window.latencies.push(performance.now() - began));
        }).observe(document.querySelector("#room"), { childList: true, subtree: true });
    });
    for (let round = 0; round < rounds; ++round) {
        await mac.item(`Item ${(round * 7) % items}`).click();
        await mac.menu.first().waitFor();
        await mac.page.keyboard.press("Escape");
        await mac.menu.first().waitFor({ state: "detached" });
    }
    return mac.page.evaluate(() => window.latencies);
}

async function movesToHighlights(mac) {
    await mac.item("Item 3").click();
    await mac.menu.waitFor();
    await mac.page.evaluate(() => {
        window.latencies = [];
        let began = 0;
        addEventListener("pointermove", (event) => { began = event.timeStamp; }, true);
        new MutationObserver((changes) => {
            if (changes.some((change) => change.target.classList.contains("highlighted")))
                window.afterPicture(() => window.latencies.push(performance.now() - began));
        }).observe(document.querySelector("#room"), { attributes: true, attributeFilter: ["class"], subtree: true });
    });
    const boxes = await mac.menu.getByRole("menuitem").evaluateAll((rows) => rows.map((row) => row.getBoundingClientRect().toJSON()));
    for (let round = 0; round < rounds; ++round) {
        const box = boxes[round % boxes.length];
        await mac.page.mouse.move(box.x + box.width / 2, box.y + box.height / 2);
        await new Promise((resolve) => setTimeout(resolve, 50));
    }
    await mac.page.keyboard.press("Escape");
    return mac.page.evaluate(() => window.latencies);
}

async function sizesOfEvents(server, during) {
    const sizes = { whole: [], change: [] };
    const leaving = new AbortController();
    const response = await fetch(new URL("stream", server.address), { signal: leaving.signal });
    const reading = (async () => {
        let text = "";
        for await (const part of response.body.pipeThrough(new TextDecoderStream())) {
            const events = (text + part).split("\n\n");
            text = events.pop();
            for (const event of events) sizes[event.startsWith("event: whole") ? "whole" : "change"]?.push(event.length);
        }
    })().catch(() => {});
    const result = await during();
    leaving.abort();
    await reading;
    return { sizes, result };
}

const folder = await mkdtemp(join(tmpdir(), "page-bench-"));
await writeFile(join(folder, "crowd.json"), JSON.stringify(desktop));
const server = await MacServer.start(program, { desktop: join(folder, "crowd.json") });
const browser = await chromium.launch({
    executablePath: process.env.CHROMIUM ?? "/usr/bin/chromium",
    args: ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run", "--disable-background-networking",
        "--disable-component-update", "--disable-sync"],
});
try {
    const mac = await MacPage.open(browser, server);
    await watchPictures(mac);
    const { sizes, result } = await sizesOfEvents(server, async () => [await pressesToMenus(mac), await movesToHighlights(mac)]);
    console.log(`press to menu, ms (${result[0].length}): ${spread(result[0])}`);
    console.log(`move to highlight, ms (${result[1].length}): ${spread(result[1])}`);
    console.log(`whole tree: ${sizes.whole[0]} bytes; differences (${sizes.change.length}): ${spread(sizes.change)} bytes`);
    await new Promise((resolve) => setTimeout(resolve, 4000));
    const before = processorSeconds(server.process);
    await new Promise((resolve) => setTimeout(resolve, idleSeconds * 1000));
    console.log(`idle: ${(((processorSeconds(server.process) - before) / idleSeconds) * 100).toFixed(2)} % of a core`);
    const hiding = await sizesOfEvents(server, async () => {
        await server.command({ do: "set", trusted: true });
        await mac.control.waitFor();
        await new Promise((resolve) => setTimeout(resolve, 3000));
    });
    console.log(`hiding all items: ${hiding.sizes.change.length} differences, the largest of ${Math.max(...hiding.sizes.change)} bytes`);
} finally {
    await browser.close();
    await server.remove();
    await rm(folder, { recursive: true, force: true });
}
