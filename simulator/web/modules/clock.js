// The clock in the menu bar shows the time of day, as that of a Mac does.

const days = ["Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"];
const months = ["Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"];

export function timeOfDay(now = new Date()) {
    const minutes = String(now.getMinutes()).padStart(2, "0");
    return `${days[now.getDay()]} ${now.getDate()} ${months[now.getMonth()]}  ${now.getHours()}:${minutes}`;
}

// Calls back when another minute begins.
export function everyMinute(work) {
    setTimeout(() => {
        work();
        everyMinute(work);
    }, 60_000 - (Date.now() % 60_000) + 50);
}
