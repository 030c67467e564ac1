// SPDX-License-Identifier: GPL-3.0-or-later
// As much as the start page needs: $(document).ready(action).
function $(root) {
    return {
        ready(action) {
            if (root.readyState === "loading")
                root.addEventListener("DOMContentLoaded", action, { once: true });
            else
                action();
        },
    };
}
