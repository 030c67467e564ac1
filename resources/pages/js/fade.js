// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of the class "gradualfader" lie unseen over the quieter ones of their links, and fade in under the mouse
// or with the keyboard's focus. The menu's words are drawn, so it is told here what its links are called.
const gradualFader = {
    fadeMs: 180,
    names: { artist: "{{Artist}}", album: "{{Album}}", track: "{{Song}}", images: "{{Images}}", videos: "{{Videos}}", blogs: "{{Blogs}}",
             news: "{{News}}", reviews: "{{Reviews}}" },

    init() {
        const reduced = matchMedia("(prefers-reduced-motion: reduce)").matches;
        for (const picture of document.querySelectorAll("img.gradualfader")) {
            const place = picture.closest("a") || picture;
            const show = opacity => () => { picture.style.opacity = opacity; };
            picture.style.opacity = 0;
            picture.style.transition = reduced ? "none" : `opacity ${this.fadeMs}ms`;
            place.addEventListener("mouseenter", show(1));
            place.addEventListener("focus", show(1));
            place.addEventListener("mouseleave", show(0));
            place.addEventListener("blur", show(0));
        }
        for (const link of document.querySelectorAll("#menu a"))
            link.setAttribute("aria-label", this.names[link.id] || link.id);
    },
};
