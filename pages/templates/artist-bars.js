window.addEventListener("load", function () {
    function showBar(id, value, barImage) {
        new ProgressBar(document.getElementById(id), value,
                        { animate: %animate, boxImage: "percentImage.png", barImage: barImage });
    }
    showBar("element1", %familiarity, "percentImage_back-familiarity.png");
    showBar("element2", %hotness, "percentImage_back-hotness.png");
});
