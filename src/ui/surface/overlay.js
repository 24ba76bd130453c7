// What we draw over the page.
function drawSoon() {}
