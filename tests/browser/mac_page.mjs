// What a scenario works with: a modelled Mac on a page of its own, and short words for what a person does there.
import { spawn } from "node:child_process";
import { mkdtemp, rm } from "node:fs/promises";
import { createInterface } from "node:readline";
import { tmpdir } from "node:os";
import { join } from "node:path";

export const tavrin = "org.tavrin.Tavrin";
const patience = 60; // seconds, of a machine that has other things to do

export class MacServer {
    static async start(program, { desktop = "notched-laptop", port = 0, profile } = {}) {
        const server = new MacServer();
        server.profile = profile ?? await mkdtemp(join(tmpdir(), "modelled-mac-"));
        server.process = spawn(program, ["--serve", "--port", String(port), "--desktop", desktop, "--profile", server.profile],
            { stdio: ["ignore", "pipe", "inherit"] });
        const lines = createInterface({ input: server.process.stdout });
        const line = await new Promise((resolve, reject) => {
            lines.once("line", resolve);
            server.process.once("exit", (status) => reject(new Error(`the server ended with status ${status}`)));
        });
        server.address = line.match(/http:\S+/)[0];
        return server;
    }

    get port() {
        return Number(new URL(this.address).port);
    }

    async command(command) {
        const response = await fetch(new URL("command", this.address), {
            method: "POST", headers: { "Content-Type": "application/json" }, body: JSON.stringify(command),
        });
        return response.json();
    }

    // Resolves to the exit status.
    async stop() {
        const ended = new Promise((resolve) => this.process.once("exit", resolve));
        this.process.removeAllListeners("exit");
        const status = new Promise((resolve) => this.process.once("exit", resolve));
        this.process.kill("SIGTERM");
        return Promise.race([status, ended]);
    }

    async remove() {
        if (this.process.exitCode === null) await this.stop();
        await rm(this.profile, { recursive: true, force: true });
    }
}

export class MacPage {
    constructor(page, server) {
        this.page = page;
        this.server = server;
    }

    static async open(browser, server, options = {}) {
        const context = await browser.newContext({ viewport: { width: 1760, height: 1000 }, ...options });
        const page = await context.newPage();
        page.setDefaultTimeout(patience * 1000);
        const mac = new MacPage(page, server);
        mac.faults = [];
        page.on("pageerror", (error) => mac.faults.push(error.message));
        page.on("request", (request) => {
            if (!request.url().startsWith(server.address)) mac.faults.push(`loads ${request.url()}`);
        });
        await page.goto(server.address);
        await mac.room.locator(".desk").waitFor();
        return mac;
    }

    get room() { return this.page.locator("#room"); }
    get panel() { return this.page.getByRole("complementary", { name: "The world around the Mac" }); }
    get control() { return this.room.locator(`.status-item[data-owner="${tavrin}"]:not(.blank)`); }
    get trace() { return this.panel.getByRole("list", { name: "Trace" }); }
    item(name) { return this.room.getByRole("group", { name: "Status items" }).first().getByRole("button", { name, exact: true }); }
    window(name) { return this.room.getByRole("dialog", { name, exact: true }); }
    button(name) { return this.room.getByRole("button", { name, exact: true }); }
    get menu() { return this.room.getByRole("menu"); }
    entry(name) { return this.menu.getByRole("menuitem", { name }); }

    // The names of the status items that are drawn, from left to right.
    async itemNames() {
        return this.room.locator(".screen").first().locator(".status-item:not(.blank)").evaluateAll((items) => items
            .map((item) => [item.getBoundingClientRect().left, item.getAttribute("aria-label")])
            .sort(([left], [right]) => left - right).map(([, name]) => name));
    }

    async dragWithCommand(locator, dx, dy = 0) {
        await this.still();
        const box = await locator.boundingBox();
        const [x, y] = [box.x + box.width / 2, box.y + box.height / 2];
        await this.page.keyboard.down("Meta");
        await this.page.mouse.move(x, y);
        await this.page.mouse.down();
        await this.page.mouse.move(x + dx, y + dy, { steps: 12 });
        await this.page.mouse.up();
        await this.page.keyboard.up("Meta");
    }

    async openConfigure() {
        await this.control.click({ button: "right" });
        await this.entry("Configure Items").click();
        await this.room.getByRole("heading", { name: "Menu Bar Items" }).waitFor();
        await this.handIsStill();
    }

    // Until what has appeared or moved stands where it belongs; what turns round and round doesn't count.
    async still() {
        await until("nothing moves", () => this.page.evaluate(() => document.getAnimations().every((animation) =>
            animation.playState === "finished" || animation.effect.getComputedTiming().iterations === Infinity)));
    }

    // Until all that the hand has done has reached the Mac, and the page shows what came of it.
    async handIsStill() {
        await until("all commands are answered", () => this.page.evaluate(() => document.querySelector("#room").dataset.waiting === "0"));
        await this.server.command({ do: "settle" });
        await this.still();
    }

    // As assistive technology presses: without the pointer.
    async pressed(locator) {
        await locator.evaluate((element) => element.click());
    }

    // Drags the row of an item by its name, which stands left of its button, onto a section.
    async dragRow(item, section) {
        await this.still();
        const row = this.room.locator(".draggable", { hasText: item }).first();
        const from = await row.boundingBox();
        const to = await this.room.getByText(section, { exact: true }).first().boundingBox();
        await this.page.mouse.move(from.x + 60, from.y + from.height / 2);
        await this.page.mouse.down();
        await this.page.mouse.move(to.x + 20, to.y + to.height / 2, { steps: 12 });
        await this.room.locator(".drop-target").waitFor();
        await this.page.mouse.up();
    }

    // Leaves System Settings open, with the switch for Tavrin in sight.
    async askForAccess() {
        await this.button("Open System Settings").click();
        await this.button("Deny").click(); // of the dialog that macOS shows
        return this.room.getByRole("checkbox", { name: "Tavrin" });
    }

    async grantAccess() {
        await (await this.askForAccess()).click();
        await this.control.waitFor();
    }

    // Hidden at first, as after the first launch with access.
    async hidden() {
        await this.grantAccess();
        await until("the items are hidden", async () => (await this.itemNames()).length === 3);
        // Escape reaches the hint only once Tavrin is the active application.
        const hint = this.room.locator(".popover.key");
        await hint.waitFor();
        await this.page.keyboard.press("Escape");
        await hint.waitFor({ state: "detached" });
    }
}

export async function until(what, holds, seconds = patience) {
    const end = Date.now() + seconds * 1000;
    for (;;) {
        if (await holds()) return;
        if (Date.now() > end) throw new Error(`it never came to pass that ${what}`);
        await new Promise((resolve) => setTimeout(resolve, 30));
    }
}
