// SPDX-License-Identifier: GPL-3.0-or-later
// Opens the picture of a link with rel="thumbnail" over the page. A click, Escape or Return closes it, and the keyboard is
// back where it was.
const thumbnailViewer = {
    init() {
        this.loading = this.add("div", "thumbLoading", document.body);
        this.box = this.add("div", "thumbBox", document.body);
        this.image = this.add("img", "thumbImage", this.box);
        this.loading.textContent = "Loading image…";
        this.loading.setAttribute("role", "status");
        this.box.tabIndex = -1;
        this.box.setAttribute("role", "dialog");

        for (const link of document.querySelectorAll('a[rel="thumbnail"]'))
            link.addEventListener("click", event => {
                event.preventDefault();
                this.open(link);
            });
        this.image.addEventListener("load", () => this.show());
        this.image.addEventListener("error", () => {
            this.loading.textContent = "The image cannot be loaded.";
        });
        this.box.addEventListener("click", () => this.close());
        this.loading.addEventListener("click", () => this.close());
        document.addEventListener("keydown", event => {
            if (this.link && (event.key === "Escape" || (event.key === "Enter" && this.isShown()))) {
                event.preventDefault();
                this.close();
            }
        });
    },

    add(kind, id, parent) {
        const element = document.createElement(kind);
        element.id = id;
        return parent.appendChild(element);
    },

    isShown() {
        return this.box.style.visibility === "visible";
    },

    open(link) {
        this.close();
        this.link = link;
        this.loading.textContent = "Loading image…";
        this.centre(this.loading);
        this.image.src = link.href;
    },

    show() {
        if (!this.link)
            return;
        this.loading.style.visibility = "hidden";
        this.centre(this.box);
        this.box.focus({ preventScroll: true });
    },

    centre(element) {
        Object.assign(element.style, { position: "fixed", left: "50%", top: "50%", transform: "translate(-50%, -50%)",
                                       visibility: "visible" });
    },

    close() {
        this.box.style.visibility = this.loading.style.visibility = "hidden";
        this.image.removeAttribute("src");
        if (this.link)
            this.link.focus({ preventScroll: true });
        this.link = null;
    },
};

document.addEventListener("DOMContentLoaded", () => thumbnailViewer.init());
