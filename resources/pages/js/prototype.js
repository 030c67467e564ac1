// SPDX-License-Identifier: GPL-3.0-or-later
// Looks an element up by its id; an element stays as it is.
function $(element) {
    return typeof element === "string" ? document.getElementById(element) : element;
}

// Whether things that move have to stand still.
const motionReduced = matchMedia("(prefers-reduced-motion: reduce)").matches;
