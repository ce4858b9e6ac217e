"use strict";

// Amplitude in metres, period in hours, phase in degrees at noon on the first day.
const constituents = [
  { name: "M2", of: "the moon, twice a day", amplitude: 2.31, period: 12.4206, phase: 41 },
  { name: "S2", of: "the sun, twice a day", amplitude: 0.79, period: 12.0, phase: 86 },
  { name: "N2", of: "the moon’s changing distance", amplitude: 0.44, period: 12.6583, phase: 12 },
  { name: "K1", of: "moon and sun, once a day", amplitude: 0.16, period: 23.9345, phase: 128 },
  { name: "O1", of: "the moon’s tilt", amplitude: 0.12, period: 25.8193, phase: 301 },
  { name: "M4", of: "the shallows", amplitude: 0.19, period: 6.2103, phase: 233 },
];
const meanLevel = 4.1; // Metres above the datum.
const firstDay = new Date(Date.UTC(2024, 2, 14));
const paper = { width: 1184, height: 540, left: 44, right: 1172, top: 34, bottom: 500, metres: 8.5 };

const days = Math.min(14, Math.max(1, Number(new URLSearchParams(location.search).get("days")) || 3));
const hours = days * 24;

function predicted(hour) {
  return constituents.reduce(
    (level, c) => level + c.amplitude * Math.cos((2 * Math.PI * hour) / c.period - (c.phase * Math.PI) / 180),
    meanLevel);
}

// A long swell in the harbour, a passing depression and the tremble of the pen.
function recorded(hour) {
  const surge = 0.28 * Math.exp(-(((hour - hours * 0.62) / (hours * 0.13)) ** 2));
  const swell = 0.035 * Math.sin(hour * 17.1) + 0.02 * Math.sin(hour * 41.7 + 1);
  return predicted(hour) + surge + swell * (0.5 + 0.5 * Math.sin(hour / 5));
}

function turningPoints() {
  const turns = [];
  const step = 1 / 60;
  for (let minute = 1; minute < hours * 60; ++minute) {
    const [before, now, after] = [-1, 0, 1].map((offset) => predicted((minute + offset) * step));
    if ((now - before) * (after - now) <= 0 && now !== before)
      turns.push({ hour: minute * step, level: now, high: now > before });
  }
  return turns;
}

const x = (hour) => paper.left + (hour / hours) * (paper.right - paper.left);
const y = (level) => paper.bottom - (level / paper.metres) * (paper.bottom - paper.top);
const dayName = (day) =>
  new Date(firstDay.getTime() + day * 86400000).toLocaleDateString("en-GB",
    { weekday: "short", day: "numeric", month: "short", timeZone: "UTC" });
const clock = (hour) =>
  `${String(Math.floor(hour) % 24).padStart(2, "0")}:${String(Math.floor((hour % 1) * 60)).padStart(2, "0")}`;

function trace(context, curve) {
  context.beginPath();
  for (let hour = 0; hour <= hours; hour += hours / 2200) context.lineTo(x(hour), y(curve(hour)));
}

function drawGrid(context) {
  const line = (x1, y1, x2, y2, width, colour) => {
    context.lineWidth = width;
    context.strokeStyle = colour;
    context.beginPath();
    context.moveTo(x1, y1);
    context.lineTo(x2, y2);
    context.stroke();
  };
  for (let level = 0; level <= paper.metres; level += 0.25) {
    const whole = level % 1 === 0;
    line(paper.left, y(level), paper.right, y(level), whole ? 1 : 0.6, whole ? "#d58d6c" : "#eac7b3");
  }
  for (let hour = 0; hour <= hours; hour += days > 4 ? 3 : 1) {
    const midnight = hour % 24 === 0;
    line(x(hour), paper.top, x(hour), paper.bottom, midnight ? 1.4 : 0.6, midnight ? "#c4693f" : hour % 6 ? "#eac7b3" : "#d58d6c");
  }
}

function drawScales(context) {
  context.fillStyle = "#a04c25";
  context.font = '13px "JetBrains Mono", monospace';
  context.textAlign = "right";
  for (let level = 0; level <= 8; ++level) context.fillText(String(level), paper.left - 12, y(level) + 4);
  context.textAlign = "left";
  for (let day = 0; day < days; ++day) context.fillText(dayName(day), x(day * 24) + (day ? 6 : 0), paper.top - 12);
  if (days > 7) return;
  context.textAlign = "center";
  for (let hour = 0; hour < hours; hour += days > 3 ? 12 : 6)
    if (hour % 24) context.fillText(clock(hour), x(hour), paper.bottom + 22);
}

function drawCurves(context) {
  trace(context, recorded);
  context.lineTo(paper.right, y(0));
  context.lineTo(paper.left, y(0));
  context.fillStyle = "#2d6a8f22";
  context.fill();

  trace(context, predicted);
  context.setLineDash([7, 6]);
  context.lineWidth = 1.4;
  context.strokeStyle = "#5c5348";
  context.stroke();
  context.setLineDash([]);

  trace(context, recorded);
  context.lineWidth = 2.4;
  context.lineJoin = "round";
  context.strokeStyle = "#1d3f73";
  context.stroke();
}

function drawTurns(context, turns) {
  context.font = 'bold 14px "JetBrains Mono", monospace';
  context.textAlign = "center";
  for (const turn of turns) {
    const level = recorded(turn.hour);
    const px = x(turn.hour);
    if (days > 4 || px < paper.left + 24 || px > paper.right - 24) continue;
    const top = y(level) - (turn.high ? 34 : 66); // The label of a low stands inside its trough.
    context.fillStyle = "#1d3f73";
    context.fillRect(px - 21, top, 42, 21);
    context.fillStyle = "#fdf8ef";
    context.fillText(level.toFixed(1), px, top + 15.5);
  }
}

function drawPaper(turns) {
  const canvas = document.getElementById("paper");
  const density = window.devicePixelRatio || 1;
  canvas.width = paper.width * density;
  canvas.height = paper.height * density;
  const context = canvas.getContext("2d");
  context.scale(density, density);
  drawGrid(context);
  drawScales(context);
  drawCurves(context);
  drawTurns(context, turns);
}

function fillTable(turns) {
  const body = document.createElement("tbody");
  turns.forEach((turn, index) => {
    const row = body.insertRow();
    const day = Math.floor(turn.hour / 24);
    const newDay = index === 0 || day !== Math.floor(turns[index - 1].hour / 24);
    const range = index ? Math.abs(turn.level - turns[index - 1].level).toFixed(1) : "";
    row.className = newDay ? "new" : "";
    [newDay ? dayName(day) : "", clock(turn.hour), turn.level.toFixed(2), turn.high ? "high" : "low", range]
      .forEach((text) => (row.insertCell().textContent = text));
    row.cells[3].className = turn.high ? "high" : "low";
  });
  document.getElementById("turns").append(body);
}

function fillBars() {
  const greatest = Math.max(...constituents.map((c) => c.amplitude));
  for (const c of constituents) {
    const bar = document.createElement("div");
    bar.className = "bar";
    bar.style.setProperty("--share", c.amplitude / greatest);
    for (const [tag, text] of [["b", c.name], ["span", c.of], ["i", ""], ["em", `${c.amplitude.toFixed(2)} m`]])
      bar.appendChild(document.createElement(tag)).textContent = text;
    document.getElementById("bars").append(bar);
  }
}

async function start() {
  await Promise.all([document.fonts.load('13px "JetBrains Mono"'), document.fonts.load('bold 14px "JetBrains Mono"')]);
  const turns = turningPoints();
  document.getElementById("polite").remove();
  for (const id of ["drawing", "below"]) document.getElementById(id).hidden = false;
  drawPaper(turns);
  fillTable(turns);
  fillBars();
}

start();
