"use strict";

// The second half of the year is fetched when it comes near the window.
const nearby = new IntersectionObserver(
  (entries) => {
    for (const { isIntersecting, target } of entries) {
      if (!isIntersecting) continue;
      nearby.unobserve(target);
      target.addEventListener("load", () => target.classList.add("arrived"), { once: true });
      target.src = target.dataset.src;
    }
  },
  { rootMargin: "300px 0px" });

for (const image of document.querySelectorAll("img[data-src]")) nearby.observe(image);
