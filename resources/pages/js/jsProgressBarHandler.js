// SPDX-License-Identifier: GPL-3.0-or-later
// A bar that shows a percentage. Needs prototype.js.
class ProgressBar {
    static width = 120;
    static height = 12;
    static fillMs = 800;

    // options: animate (the bar fills up before the eyes), boxImage (the whole width), barImage (what is filled).
    constructor(element, percentage, options) {
        const share = Math.min(100, Math.max(0, Number(percentage) || 0));
        const box = $(element);
        const bar = document.createElement("span");
        for (const [part, image] of [[box, options.boxImage], [bar, options.barImage]])
            Object.assign(part.style, {
                display: "inline-block", height: ProgressBar.height + "px", verticalAlign: "middle",
                background: `url(${image}) no-repeat left center`,
            });
        Object.assign(box.style, {
            width: ProgressBar.width + "px", borderRadius: "6px", overflow: "hidden", lineHeight: 0,
        });
        box.title = share + " %";
        box.setAttribute("role", "meter");
        box.setAttribute("aria-valuenow", share);
        box.replaceChildren(bar);

        const filled = ProgressBar.width * share / 100 + "px";
        bar.style.width = filled;
        if (options.animate && !motionReduced)
            bar.animate([{ width: 0 }, { width: filled }], { duration: ProgressBar.fillMs, easing: "ease-out" });
    }
}
