// Each drives the modelled Mac as a person does, with pointer and keyboard, and looks at what the page shows.
import assert from "node:assert/strict";
import { createServer } from "node:http";
import { MacPage, MacServer, tavrin, until } from "./mac_page.mjs";

export const scenarios = {
    async "onboarding: granting access brings the control and hides the items"({ mac }) {
        await mac.window("Welcome to Tavrin").getByRole("heading", { name: "Allow Tavrin to tidy your menu bar" }).waitFor();
        assert.equal(await mac.control.count(), 0);
        const box = await mac.askForAccess();
        assert.equal(await box.isChecked(), false);
        await box.click();
        await until("the box is ticked", () => box.isChecked());
        await mac.window("Welcome to Tavrin").waitFor({ state: "detached" });
        await until("only fixed items and the control are drawn", async () => (await mac.itemNames()).length === 3);
        assert.deepEqual(await mac.itemNames(), ["Tavrin", "Control Center", "Clock"]);
        await mac.room.getByText("Your menu bar items are tucked away").waitFor();
        await mac.trace.getByText("Accessibility may be used").first().waitFor();
        await mac.trace.getByText("hiddenItemIdentifiers").first().waitFor();
    },

    async "control: a click reveals, the next one hides"({ mac }) {
        await mac.hidden();
        await mac.control.click();
        await mac.item("Spotlight").waitFor();
        const revealed = await mac.itemNames();
        assert.ok(revealed.length > 10, revealed.join());
        assert.match(await mac.control.innerHTML(), /chevrons-left/);
        await mac.page.keyboard.press("Escape");
        await mac.control.click({ button: "right" });
        await mac.entry("Hide Configured Items").click();
        await mac.item("Spotlight").waitFor({ state: "detached" });
        assert.match(await mac.control.innerHTML(), /chevrons-right/);
    },

    async "macOS 27: a list hides, the clock stays free, and a click reveals"({ mac }) {
        await mac.panel.getByRole("button", { name: "macOS 27", exact: true }).click();
        await mac.panel.getByRole("button", { name: "macOS 27", exact: true, pressed: true }).waitFor();
        await mac.grantAccess();
        await mac.room.locator(".popover.key").waitFor();
        await mac.page.keyboard.press("Escape");
        await mac.item("Spotlight").waitFor({ state: "detached" });
        await mac.handIsStill();
        const hidden = await mac.itemNames();
        await mac.room.getByRole("button", { name: "Clock", exact: true }).click();
        await until("Notification Center is open", async () => (await mac.server.command({ do: "look" })).surfaces
            .some(({ owner }) => owner === "com.apple.notificationcenterui"));
        await mac.server.command({ do: "set", notificationCenter: false });
        await mac.page.mouse.move(600, 600);
        await until("the items are hidden again", async () => (await mac.itemNames()).join() === hidden.join());
        await mac.control.click();
        await mac.item("Spotlight").waitFor();
    },

    async "control menu: opens on a right click, tracks pointer and keys, closes on Escape"({ mac }) {
        await mac.hidden();
        await mac.control.click({ button: "right" });
        await mac.entry("Quit Tavrin").waitFor();
        await mac.entry("About Tavrin").hover();
        await mac.menu.locator(".highlighted", { hasText: "About Tavrin" }).waitFor();
        await mac.page.keyboard.press("ArrowDown");
        await until("the highlight moved on", async () => await mac.menu.locator(".highlighted", { hasText: "About Tavrin" }).count() === 0);
        assert.equal(await mac.menu.locator(".highlighted").count(), 1);
        await mac.page.keyboard.press("Escape");
        await mac.menu.waitFor({ state: "detached" });
    },

    async "long menus: arrows, wheel and keys bring every entry into sight"({ mac }) {
        const menu = Array.from({ length: 70 }, (_, index) => ({ title: `Entry ${index + 1}` }));
        await mac.server.command({ do: "set", launch: {
            bundleIdentifier: "org.example.long", name: "Long", policy: "accessory", statusItems: [{ width: 30, description: "Long", menu }],
        } });
        await mac.item("Long").click();
        const isSeen = async (name) => {
            const [entry, rows] = [await mac.entry(new RegExp(`^${name}$`)).boundingBox(), await mac.menu.locator(".menu-rows").boundingBox()];
            return entry && rows && entry.y >= rows.y - 1 && entry.y + entry.height <= rows.y + rows.height + 1;
        };
        assert.ok(await isSeen("Entry 1") && !await isSeen("Entry 70"));
        assert.equal(await mac.menu.locator(".menu-arrow").count(), 1, "there is nothing above");
        await mac.menu.locator(".menu-arrow.below").hover({ force: true });
        await until("the arrow has brought the last one", () => isSeen("Entry 70"));
        await mac.entry(/^Entry 60$/).hover();
        await mac.page.mouse.wheel(0, -5000);
        await until("the wheel has brought the first one", () => isSeen("Entry 1"));
        await mac.page.keyboard.press("End");
        await until("the key has brought the last one", () => isSeen("Entry 70"));
        await mac.page.keyboard.press("Enter");
        await mac.trace.getByText("Entry 70").waitFor();
    },

    async "icons: every identifier has one"({ mac }) {
        const tags = await mac.page.evaluate(async () => {
            const { applicationIcon } = await import("./modules/icons.js");
            const odd = ["", ".", "org.example.", "constructor", "__proto__", "toString", "\u{1F600}", "\ud800", " "];
            return odd.flatMap((text) => [applicationIcon(text, { menuBar: [] }), applicationIcon("org.x", { menuBar: [{ owner: "org.x", name: text, symbol: text }] })])
                .map((icon) => `${icon.tag} ${icon.children[0].tag}`);
        });
        assert.ok(tags.every((tag) => tag === "span b"), tags.join(", "));
    },

    async "quitting: all items come back, and a new launch hides them again"({ mac }) {
        const before = await mac.itemNames();
        await mac.hidden();
        await mac.control.click({ button: "right" });
        await mac.entry("Quit Tavrin").click();
        await mac.control.waitFor({ state: "detached" });
        await until("the bar is as it was", async () => (await mac.itemNames()).join() === before.join());
        await mac.panel.getByRole("button", { name: "Start" }).click();
        await mac.control.waitFor();
        await until("the items are hidden again", async () => (await mac.itemNames()).length === 3);
        assert.equal(await mac.window("Welcome to Tavrin").count(), 0);
    },

    async "menu bar: Command-drag reorders items and passes nothing fixed"({ mac }) {
        const before = await mac.itemNames();
        const [battery, wifi] = [before.find((name) => name.startsWith("Battery")), before.find((name) => name.startsWith("Wi"))];
        const box = await mac.item(wifi).boundingBox();
        await mac.dragWithCommand(mac.item(battery), box.width);
        const swapped = before.map((name) => (name === battery ? wifi : name === wifi ? battery : name));
        await until("the two have changed places", async () => (await mac.itemNames()).join() === swapped.join());
        await mac.dragWithCommand(mac.item(battery), 400);
        await mac.dragWithCommand(mac.item("Clock"), -400);
        await mac.dragWithCommand(mac.item("Spotlight"), -200, 300);
        await mac.handIsStill();
        assert.deepEqual(await mac.itemNames(), swapped);
    },

    async "menu bar: applications' menus drop, track and say which entry ran"({ mac }) {
        const title = (name) => mac.room.getByRole("menubar").getByRole("menuitem", { name, exact: true });
        await title("File").click();
        await mac.entry("New Folder").waitFor();
        assert.equal(await title("File").getAttribute("aria-expanded"), "true");
        await title("View").hover();
        await mac.menu.getByRole("menuitemcheckbox", { name: "as Icons", checked: true }).waitFor();
        await mac.entry("Sort By").hover();
        await until("the submenu is open", async () => await mac.menu.count() === 2);
        await mac.menu.last().getByRole("menuitem", { name: "Kind" }).click();
        await mac.trace.getByText("View › Sort By › Kind").waitFor();
        assert.equal(await mac.menu.count(), 0);
    },

    async "configure popover: rows stand at their frames, and a press moves an item to Shown"({ mac }) {
        await mac.hidden();
        await mac.openConfigure();
        const misplaced = async () => mac.page.evaluate((surfaces) => {
            const desk = document.querySelector(".desk").getBoundingClientRect();
            const scale = Number(document.querySelector(".desk").style.transform.match(/[\d.]+/)[0]);
            const wrong = [];
            const compare = (node, element) => {
                if (!element) return wrong.push(node.text ?? node.role); // it isn't drawn yet
                const box = element.getBoundingClientRect();
                const [x, y, width, height] = node.frame;
                const near = (value, wanted) => Math.abs(value - wanted * scale) < 1;
                if (!near(box.left - desk.left, x) || !near(box.top - desk.top, y) || !near(box.width, width) || !near(box.height, height)) wrong.push(node.text ?? node.role);
                const children = [...element.children].filter((child) => child.classList.contains("view"));
                (node.children ?? []).forEach((child, index) => compare(child, children[index]));
            };
            const popover = surfaces.find((surface) => surface.kind === "popover");
            if (!popover) return ["the popover"];
            compare(popover.children[0], document.querySelector(".surface.popover > .view"));
            return wrong;
        }, (await mac.server.command({ do: "look" })).surfaces);
        await until("all stands at its frame", async () => (await misplaced()).length === 0).catch(async () => assert.deepEqual(await misplaced(), []));
        await mac.room.getByRole("button", { name: "Show" }).first().click();
        await mac.room.getByRole("button", { name: "Hide" }).first().waitFor();
    },

    async "configure popover: a row dragged to the other section is where it belongs once it is applied"({ mac }) {
        await mac.hidden();
        await mac.openConfigure();
        await mac.dragRow("Tray Thing", "Shown");
        await mac.button("Hide Tray Thing").waitFor();
        assert.equal(await mac.room.locator(".drop-target").count(), 0);
        await mac.button("Apply and Hide").click();
        await mac.trace.locator(".posted").first().waitFor();
        await until("it stays in the hidden bar", async () =>
            (await mac.itemNames()).join() === "Tavrin,Tray Thing,Control Center,Clock");
        assert.equal(await mac.button("Apply and Hide").count(), 0);
        assert.deepEqual((await mac.server.command({ do: "look" })).pointer.buttons, []);
    },

    async "pins: one stands in the menu, asks before its first run, runs, and tells when it can't"({ mac }) {
        const pin = (id, name, path) => ({
            id: `E621E1F8-C36C-495A-93FC-0C247A3E6E5${id}`, name, path: path.map((title) => ({ title })), menuOrigin: "appMenuBar",
            bundleIdentifier: "org.example.textdesk", applicationName: "Text Desk", statusItem: { index: 0 },
            hasConfirmedFirstRun: name !== "Plan",
        });
        const pins = [pin(1, "Plan", ["File", "Open Recent", "Plan.txt"]), pin(2, "Gone", ["File", "Not There"])];
        const document = Buffer.from(JSON.stringify({ version: 1, pins })).toString("base64");
        await mac.server.command({ do: "set", preferences: { [tavrin]: { "Tavrin.pinnedActions": { $data: document } } } });
        await mac.hidden();
        await mac.control.click({ button: "right" });
        const picture = mac.entry("Plan").locator("img");
        await until("it shows the picture that is stored", () => picture.evaluate((image) => image.naturalWidth === 32));
        await mac.entry("Plan").click();
        await mac.room.getByText("Run \"Plan\"?").waitFor();
        await mac.button("Run").click();
        await mac.trace.getByText("File › Open Recent › Plan.txt").waitFor();
        await mac.control.click({ button: "right" });
        await mac.entry("Gone").click();
        const notice = mac.room.locator(".surface", { hasText: "\"Gone\" didn't run" }).filter({ hasText: "Not There" });
        await notice.getByRole("button", { name: "Close" }).click(); // before it goes by itself, after 12 s
        await until("the notice has gone", async () => await mac.room.getByText("\"Gone\" didn't run").count() === 0);
    },

    async "wheel: a list scrolls under the pointer"({ mac }) {
        await mac.hidden();
        await mac.openConfigure();
        const row = mac.room.locator(".scroll .view", { hasText: "Tray Thing" }).last();
        await row.hover();
        await mac.handIsStill();
        const before = (await row.boundingBox()).y;
        await mac.page.mouse.wheel(0, 60);
        await until("the list has moved", async () => Math.abs((await row.boundingBox()).y - before + 60) < 2);
    },

    async "two pages show the same Mac, and follow a restart of it"({ mac, browser, program }) {
        const second = await MacPage.open(browser, mac.server);
        const title = (page) => page.room.getByRole("menubar").getByRole("menuitem", { name: "Edit" });
        await title(mac).click();
        await second.entry("Select All").waitFor();
        await second.page.keyboard.press("Escape");
        await mac.menu.waitFor({ state: "detached" });
        const { port, profile } = mac.server;
        await mac.grantAccess();
        assert.equal(await mac.server.stop(), 0);
        await mac.page.getByText("Waiting for the modelled Mac…").waitFor();
        mac.server = await MacServer.start(program, { port, profile });
        second.server = mac.server;
        for (const page of [mac, second]) {
            await page.page.getByText("Waiting for the modelled Mac…").waitFor({ state: "hidden" });
            await page.control.waitFor();
        }
        assert.deepEqual(second.faults, []);
    },

    async "another site's page can neither command nor look"({ mac, browser }) {
        const attempts = `<!doctype html><form id=f method=post enctype=text/plain action="${mac.server.address}command"><input name='{"do":"crash","x":"' value='"}'></form>
            <script>(async () => {
                const target = "${mac.server.address}";
                const body = JSON.stringify({ do: "set", trusted: true });
                const tries = [
                    () => fetch(target + "command", { method: "POST", headers: { "Content-Type": "application/json" }, body }),
                    () => fetch(target + "command", { method: "POST", mode: "no-cors", body }).then(() => { throw new Error("sent blindly"); }),
                    () => fetch(target + "stream"),
                    () => new Promise((resolve, reject) => { const s = new EventSource(target + "stream"); s.onmessage = s.onopen = resolve; s.onerror = reject; }),
                    () => import(target + "modules/main.js"),
                    () => new Promise((resolve, reject) => { const frame = document.createElement("iframe"); frame.src = target; document.body.append(frame);
                        frame.onload = () => { try { frame.contentDocument.body; resolve(); } catch { reject(); } }; }),
                ];
                const succeeded = [];
                for (const [index, attempt] of tries.entries()) await attempt().then(() => succeeded.push(index), () => {});
                document.title = "done:" + succeeded.join();
            })()</script>`;
        const site = createServer((_, response) => response.setHeader("Content-Type", "text/html").end(attempts)).listen(0, "127.0.0.1");
        try {
            for (const host of ["127.0.0.1", "localhost"]) {
                const page = await (await browser.newContext()).newPage();
                await page.goto(`http://${host}:${site.address().port}/`);
                await until("all was tried", async () => (await page.title()).startsWith("done:"));
                assert.equal(await page.title(), "done:");
                assert.ok(page.frames().length < 2 || !(await page.frames()[1].content()).includes("room"), "shown in a frame");
                const [response] = await Promise.all([page.waitForResponse((one) => one.url().endsWith("/command")),
                    page.evaluate(() => document.querySelector("#f").submit())]);
                assert.equal(response.status(), 403);
            }
        } finally {
            site.close();
        }
        const { world } = await mac.server.command({ do: "look" });
        assert.deepEqual([world.trusted, world.running], [false, true]);
    },

    async "panel: it changes the world"({ mac }) {
        const press = (name) => mac.panel.getByRole("button", { name, exact: true }).click();
        await press("Attach display");
        await until("there are two displays", async () => await mac.room.getByRole("region", { name: /Display/ }).count() === 2);
        await press("Detach display");
        await until("there is one", async () => await mac.room.getByRole("region", { name: /Display/ }).count() === 1);
        await press("Quit Spotlight");
        await mac.item("Spotlight").waitFor({ state: "detached" });
        await press("Launch Spotlight");
        await mac.item("Spotlight").waitFor();
        const toggle = (name, pressed) => mac.panel.getByRole("button", { name, exact: true, pressed }).waitFor();
        await press("Hang JChat");
        await toggle("Hang JChat", true);
        await press("Hang JChat");
        await toggle("Hang JChat", false);
        await press("Refuse drags of JChat");
        await toggle("Refuse drags of JChat", true);
        await press("Refuse drags of JChat");
        await toggle("Refuse drags of JChat", false);
        await press("Grant access");
        await mac.control.waitFor();
        await press("Revoke access");
        await mac.panel.getByText("May not use Accessibility.").waitFor();
        await press("Crash");
        await mac.control.waitFor({ state: "detached" });
        await mac.panel.getByRole("combobox", { name: "Desktop file" }).selectOption("two-displays");
        await until("the other Mac is there", async () => await mac.room.getByRole("region", { name: /Display/ }).count() === 2);
        await press("macOS 27");
        await mac.panel.getByRole("button", { name: "macOS 27", pressed: true }).waitFor();
        const look = await mac.server.command({ do: "look" });
        assert.equal(look.screens.length, 2);
    },

    async "appearance: dark and calm when the person wants it so"({ mac, browser }) {
        assert.equal(await mac.page.locator("html.dark").count(), 0);
        const dark = await MacPage.open(browser, mac.server, { colorScheme: "dark", reducedMotion: "reduce" });
        assert.equal(await dark.page.locator("html.dark").count(), 1);
        const transition = await dark.room.locator(".status-item").first().evaluate((item) => getComputedStyle(item).transitionDuration);
        assert.equal(transition, "0s");
    },

    async "keyboard: Return presses the default button, and focus presses without the pointer"({ mac }) {
        await mac.room.focus();
        await mac.page.keyboard.press("Enter");
        await mac.room.getByRole("checkbox", { name: "Tavrin" }).focus();
        await mac.page.keyboard.press(" ");
        await mac.control.waitFor();
    },

    async "shortcut recorder: it takes the keys typed on the page, and the new shortcut hides and reveals"({ mac }) {
        await mac.hidden();
        await mac.control.click({ button: "right" });
        await mac.entry("Settings…").click();
        const recorder = mac.window("Tavrin Settings").getByRole("button", { name: "Toggle shortcut" });
        await recorder.getByText("⌃⌥H").waitFor();
        await recorder.click();
        await recorder.getByText("Type shortcut…").waitFor();
        assert.equal(await recorder.getAttribute("aria-pressed"), "true");
        for (const key of ["Tab", "Shift+A", "Enter"]) await mac.page.keyboard.press(key);
        await mac.trace.getByText("beep").nth(2).waitFor();
        await mac.page.keyboard.press("Control+Alt+Shift+Digit4");
        await recorder.getByText("⌃⌥⇧4").waitFor();
        await mac.trace.getByText("toggleShortcut").waitFor();
        await recorder.focus();
        await mac.page.keyboard.press(" ");
        await recorder.getByText("Type shortcut…").waitFor();
        await mac.page.keyboard.press("Escape");
        await recorder.getByText("⌃⌥⇧4").waitFor();
        await mac.page.keyboard.press("Control+Alt+Shift+Digit4");
        await mac.item("Spotlight").waitFor();
        await mac.page.keyboard.press("Escape");
        await mac.window("Tavrin Settings").waitFor({ state: "detached" });
        await mac.page.keyboard.press("Control+Alt+Shift+Digit4");
        await mac.item("Spotlight").waitFor({ state: "detached" });
    },

    async "help: a tooltip shows when the pointer rests"({ mac }) {
        await mac.hidden();
        await mac.control.hover();
        const tip = mac.page.getByRole("tooltip").filter({ hasText: "Tavrin: click to" });
        await tip.waitFor();
        const [inner, outer] = [await tip.boundingBox(), await mac.room.getByRole("region", { name: "Display 1" }).boundingBox()];
        assert.ok(inner.x > outer.x && inner.x + inner.width < outer.x + outer.width, "inside the display");
        await mac.page.mouse.move(300, 500);
        await mac.page.getByRole("tooltip").waitFor({ state: "hidden" });
    },

    async "pointer: it stops at the edge of the display, and what is refused pushes nothing away"({ mac }) {
        const button = mac.panel.getByRole("button", { name: "Hold ⌘" });
        const before = await button.boundingBox();
        const display = await mac.room.getByRole("region", { name: "Display 1" }).boundingBox();
        await mac.page.mouse.move(display.x + 300, display.y + 300);
        await mac.page.mouse.move(display.x + display.width + 5, display.y + display.height + 30);
        const { screens: [{ frame: [x, y, width, height] }] } = await mac.server.command({ do: "look" });
        await until("the pointer is in the corner", async () => {
            const { pointer } = await mac.server.command({ do: "look" });
            return pointer.at[0] === x + width - 1 && pointer.at[1] === y + height - 1;
        });
        assert.equal(await mac.page.locator("#complaints").textContent(), "");
        await mac.page.evaluate(() => import("./modules/commands.js").then(({ send }) => send({ do: "move", at: [-500, -500] })));
        await mac.page.getByText("no screen is there").waitFor();
        assert.deepEqual(await button.boundingBox(), before);
    },

    async "commands: they go on in order while the page is busy"({ mac }) {
        const arrived = await mac.page.evaluate(async () => {
            const { send } = await import("./modules/commands.js");
            const look = () => {
                const request = new XMLHttpRequest();
                request.open("POST", "command", false); // so that the page does nothing else meanwhile
                request.setRequestHeader("Content-Type", "application/json");
                request.send(JSON.stringify({ do: "look" }));
                return JSON.parse(request.response).pointer;
            };
            for (const [name, x] of [["move", 300], ["down", 310], ["move", 320], ["up", 330], ["move", 340]])
                send({ do: name, at: [x, 600], ...(name === "move" ? {} : { button: "left" }) });
            const end = Date.now() + 30000;
            while (look().at[0] !== 340 && Date.now() < end);
            return look();
        });
        assert.deepEqual([arrived.at, arrived.buttons], [[340, 600], []]);
    },

    async "commands: the page sends them itself where it gets no worker"({ browser, mac }) {
        const context = await browser.newContext({ viewport: { width: 1760, height: 1000 } });
        await context.route("**/command_worker.js", (route) => route.abort());
        const page = new MacPage(await context.newPage(), mac.server);
        await page.page.goto(mac.server.address);
        await page.room.getByRole("menubar").getByRole("menuitem", { name: "Edit" }).click();
        await page.entry("Select All").waitFor();
        await page.handIsStill();
    },

    async "windows: the display cuts them off, and the menu bar stays in front of them"({ mac }) {
        const window = mac.window("Welcome to Tavrin");
        await window.waitFor();
        await mac.still();
        const grip = await window.getByRole("heading", { name: "Welcome to Tavrin" }).boundingBox();
        const [x, y] = [grip.x + grip.width / 2, grip.y + grip.height / 2];
        await mac.page.mouse.move(x, y);
        await mac.page.mouse.down();
        await mac.page.mouse.move(x, 0, { steps: 6 });
        await mac.handIsStill();
        const bar = await mac.room.locator(".menu-bar").boundingBox();
        await until("it stands under the menu bar", async () => Math.abs((await window.boundingBox()).y - bar.y - bar.height) < 2);
        await mac.page.mouse.move(0, 500, { steps: 6 });
        await mac.page.mouse.up();
        await mac.handIsStill();
        const display = await mac.room.getByRole("region", { name: "Display 1" }).boundingBox();
        const box = await window.boundingBox();
        assert.ok(box.x < display.x, "it reaches beyond the edge");
        const seen = await mac.page.evaluate(([left, top]) => document.elementFromPoint(left, top)?.closest(".surface") !== null, [display.x - 6, box.y + 40]);
        assert.equal(seen, false);
    },

    async "without a pointer: a press reaches its control, scrolled away or covered"({ mac }) {
        await mac.hidden();
        await mac.openConfigure();
        const shows = mac.room.getByRole("button", { name: /^Show / });
        const name = await shows.last().getAttribute("aria-label");
        await mac.pressed(shows.last());
        await mac.button(name.replace("Show", "Hide")).waitFor();
        assert.equal(await mac.room.getByRole("button", { name: /^Hide / }).count(), 1, "that one and no other");
        const covered = mac.room.getByRole("checkbox", { name: "JChat" });
        await mac.pressed(covered);
        await until("the box behind the popover is ticked", () => covered.isChecked());
        await mac.pressed(mac.item("Control Center"));
        await until("Control Center is open", async () => await mac.item("Control Center").getAttribute("aria-expanded") === "true");
    },

    async "without a pointer: menus open, go on to submenus, and run their entries"({ mac }) {
        await mac.pressed(mac.room.getByRole("menubar").getByRole("menuitem", { name: "View" }));
        await mac.pressed(mac.entry("Sort By"));
        await until("the submenu is open", async () => await mac.menu.count() === 2);
        await mac.pressed(mac.menu.last().getByRole("menuitem", { name: "Kind" }));
        await mac.trace.getByText("View › Sort By › Kind").waitFor();
        assert.equal(await mac.menu.count(), 0);
    },

    async "keyboard: it reaches the menu bar, moves along it, and opens menus"({ mac }) {
        const focused = () => mac.page.evaluate(() => document.activeElement.getAttribute("aria-label") ?? document.activeElement.textContent);
        await mac.room.focus();
        await mac.page.keyboard.press("Control+F2");
        assert.equal(await focused(), "System menu");
        await mac.page.keyboard.press("ArrowRight");
        await mac.page.keyboard.press("ArrowRight");
        assert.equal(await focused(), "File");
        await mac.page.keyboard.press("Enter");
        await mac.entry("New Folder").waitFor();
        await mac.page.keyboard.press("Escape");
        await mac.menu.waitFor({ state: "detached" });
        await mac.page.keyboard.press("Control+F8");
        assert.equal(await focused(), "Clock");
        await mac.page.keyboard.press("ArrowLeft");
        assert.equal(await focused(), "Control Center");
        await mac.page.keyboard.press("Escape");
        assert.equal(await focused(), "Modelled Mac");
    },

    async "keyboard: it stays with the Mac after a press in the panel"({ mac }) {
        await mac.room.getByRole("menubar").getByRole("menuitem", { name: "File" }).click();
        await mac.entry("New Folder").waitFor();
        await mac.panel.getByRole("button", { name: "Hold ⌘" }).click();
        await mac.panel.getByRole("button", { name: "Hold ⌘", pressed: true }).click();
        await mac.panel.getByRole("checkbox", { name: "Reduce motion" }).click();
        await mac.page.keyboard.press("Escape");
        await mac.menu.waitFor({ state: "detached" });
        const quit = mac.panel.getByRole("button", { name: "Quit", exact: true });
        await quit.focus();
        await mac.page.keyboard.press("Enter");
        await mac.panel.locator("[aria-disabled]", { hasText: /^Quit$/ }).waitFor();
        await mac.page.keyboard.press("Enter");
        await mac.handIsStill();
        assert.equal((await mac.server.command({ do: "look" })).world.running, false, "not started by the same key");
    },

    async "eight pages of one browser show the Mac and can act on it"({ mac }) {
        const pages = [mac];
        while (pages.length < 8) {
            const other = new MacPage(await mac.page.context().newPage(), mac.server);
            await other.page.goto(mac.server.address);
            await other.room.locator(".desk").waitFor();
            pages.push(other);
        }
        const last = pages.at(-1);
        await last.room.getByRole("menubar").getByRole("menuitem", { name: "Edit" }).click();
        for (const page of pages) await page.entry("Select All").waitFor();
        await last.page.close();
        await mac.page.keyboard.press("Escape");
        for (const page of pages.slice(0, -1)) await page.menu.waitFor({ state: "detached" });
    },

    async "two displays: a menu opens on the display where it was asked for"({ mac }) {
        await mac.hidden();
        await mac.panel.getByRole("button", { name: "Attach display" }).click();
        const second = mac.room.getByRole("region", { name: "Display 2" });
        await second.waitFor();
        const isIn = async (thing) => {
            const [inner, outer] = [await thing.boundingBox(), await second.boundingBox()];
            return inner !== null && inner.x > outer.x && inner.x + inner.width < outer.x + outer.width;
        };
        await second.getByRole("button", { name: "Control Center" }).click();
        await until("its panel is on the second display", () => isIn(mac.room.locator(".surface.panel, .surface.popover, .surface.menu").last()));
        await mac.page.keyboard.press("Escape");
        await second.locator(`.status-item[data-owner="${tavrin}"]:not(.blank)`).click({ button: "right" });
        await mac.entry("About Tavrin").waitFor();
        assert.ok(await isIn(mac.menu.last()));
    },

    async "symbols: they are fetched once"({ mac }) {
        const fetched = [];
        mac.page.on("request", (request) => request.url().includes("sprite.svg") && fetched.push(request.url()));
        await mac.page.reload();
        await mac.room.locator(".desk").waitFor();
        await mac.hidden();
        await mac.openConfigure();
        assert.equal(fetched.length, 1);
    },

    async "size: the Mac grows in its room, follows the browser's zoom, and is scrolled to"({ mac }) {
        const width = async () => (await mac.room.locator(".desk").boundingBox()).width;
        const before = await width();
        await mac.page.getByRole("button", { name: "Make the Mac larger" }).click();
        await mac.page.getByRole("button", { name: "Make the Mac larger" }).click();
        await until("it has grown", async () => Math.abs(await width() / before - 1.5625) < 0.01);
        await mac.item("Clock").click();
        await until("the clock has heard of it", async () => await mac.item("Clock").getAttribute("aria-expanded") === "true");
        await mac.page.keyboard.press("Escape");
        await mac.page.getByRole("button", { name: "Show the whole Mac" }).click();
        await until("it is whole again", async () => Math.abs(await width() - before) < 1);
        const browser = await mac.page.context().newCDPSession(mac.page);
        const bounds = mac.page.viewportSize();
        await browser.send("Emulation.setDeviceMetricsOverride", { width: Math.round(bounds.width / 1.5), height: Math.round(bounds.height / 1.5), deviceScaleFactor: 1.5, mobile: false });
        await until("the page has larger pixels", () => mac.page.evaluate(() => devicePixelRatio === 1.5));
        await mac.page.evaluate(() => new Promise((drawn) => requestAnimationFrame(() => requestAnimationFrame(drawn))));
        await until("it is as large in them as it was", async () => Math.abs(await width() - before) < 2);
    },

    async "narrow windows: the panel folds, and nothing reaches beyond"({ browser, mac }) {
        for (const width of [390, 820, 3840]) {
            const page = await MacPage.open(browser, mac.server, { viewport: { width, height: 800 } });
            assert.equal(await page.page.getByRole("button", { name: "Show the panel" }).count(), width < 1000 ? 1 : 0, String(width));
            assert.ok(await page.page.evaluate(() => document.documentElement.scrollWidth <= innerWidth), "nothing to scroll to aside");
            if (width < 1000) {
                await page.page.getByRole("button", { name: "Show the panel" }).click();
                const box = await page.panel.boundingBox();
                assert.ok(box.x >= 0 && box.x + box.width <= width + 1);
                await page.page.getByRole("button", { name: "Hide the panel" }).click();
            }
            await page.item("Clock").waitFor();
            assert.match(await page.item("Clock").textContent(), /^\w{3} \d+ \w{3} {2}\d+:\d\d$/);
        }
    },

    async "touch: a tap clicks, a long touch opens the menu, and a finger moves the Mac itself"({ browser, mac }) {
        await mac.hidden();
        const page = await MacPage.open(browser, mac.server, { viewport: { width: 390, height: 800 }, hasTouch: true });
        const box = await page.control.boundingBox();
        const at = { x: box.x + box.width / 2, y: box.y + box.height / 2 };
        await page.page.touchscreen.tap(at.x, at.y);
        await page.item("Spotlight").waitFor();
        const fingers = await page.page.context().newCDPSession(page.page);
        await fingers.send("Input.dispatchTouchEvent", { type: "touchStart", touchPoints: [at] });
        await page.entry("About Tavrin").waitFor();
        await fingers.send("Input.dispatchTouchEvent", { type: "touchEnd", touchPoints: [] });
        await page.handIsStill();
        const scrolled = () => page.room.evaluate((room) => room.scrollLeft);
        const before = await scrolled();
        await fingers.send("Input.synthesizeScrollGesture", { x: 150, y: 500, xDistance: 80, yDistance: 0, gestureSourceType: "touch" });
        await until("the finger has moved the Mac", async () => await scrolled() < before - 40);
        assert.equal(await page.entry("About Tavrin").count(), 1, "the Mac has heard nothing of it");
        assert.deepEqual((await mac.server.command({ do: "look" })).pointer.buttons, []);
    },
};
