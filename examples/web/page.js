// SPDX-License-Identifier: BSL-1.0
// What is on the page: files, points and the station of the section. All numbers, and their texts,
// come from the library; what it cannot answer it says in `error`.

const kMostPoints = 50000;
const kMostRows = 500;
const kMostCircles = 2000;
const kMostNames = 20;  // in a drawing
const kLongestPiece = 200;  // of work between two signs of life (ms)
const kElements = ["straight", "arc", "clothoid"];
const kDecimals = 4;  // of the tables, as tunnel_survey writes them

let library = null;
let tunnel = null;
let axis = null;        // range, and lines to be drawn
let hasEnd = false;     // a second profile was chosen, even if it cannot be used
let transition = null;  // its range
let station = 0;        // of the section
let design = {};        // what is to be drawn there
let table = {points: [], remarks: [], description: ""};  // as read
let clicked = [];       // points of the mouse, the latest first
let rows = [];          // these and the table's, with their results
let selected = null;
let latestRun = 0;      // of placing points
let isBusy = true;      // with it

const byId = id => document.getElementById(id);

function say(id, text, isFault = false) {
  byId(id).textContent = text;
  byId(id).classList.toggle("fault", isFault);
}

function listed(texts, most = 8) {
  return texts.length > most ? [...texts.slice(0, most), `and ${texts.length - most} more`] : texts;
}

// --- Axis and profiles ---------------------------------------------------------------------------

function loadAxis(data, name) {
  const answer = tunnel.readAxis(data);
  axis = answer.error ? null : answer;
  if (axis) {
    axis.lines = tunnel.planLines();
    axis.marks = new Map();
    for (const line of axis.lines) {
      const [easts, norths] = [0, 1].map(i => line.points.map(point => point[i]));
      line.box = [Math.min(...easts), Math.min(...norths), Math.max(...easts), Math.max(...norths)];
    }
    say("axis-status", [`${name}: ${axis.name}, ${tunnel.stationText(axis.from, 3)} to ${tunnel.stationText(axis.to, 3)}, ` +
      `${axis.elements} elements in plan, ${axis.heights} points of the vertical alignment`, ...listed(axis.notes)].join("\n"));
  } else {
    say("axis-status", `${name} cannot be used. ${answer.error}`, true);
  }
  station = axis ? axis.from : station;
  setTransition();
  plan.show(planBox());
}

function planBox() {
  const boxes = axis ? axis.lines.map(line => line.box) : [[0, 0, 1, 1]];
  return [0, 1, 2, 3].map(i => Math[i < 2 ? "min" : "max"](...boxes.map(box => box[i])));
}

function loadDesign(data, name, isEnd) {
  const answer = tunnel.readDesign(data, isEnd);
  const text = answer.error ? `${name} cannot be used. ${answer.error}`
    : `${name}: ${answer.elements} elements, ${sizeOf(answer)}`;
  say(isEnd ? "end-status" : "start-status", text, !!answer.error);
  hasEnd = hasEnd || isEnd;
  setTransition();
  section.show(sectionBox());
}

function sizeOf(profile) {
  const [width, height] = [0, 1].map(i => profile.upperRight[i] - profile.lowerLeft[i]);
  const text = (value, decimals) => library.fixed(value, decimals);
  return `${text(width, 3)} m wide, ${text(height, 3)} m high, area ${text(profile.area, 3)} m\u00b2, ` +
    `circumference ${text(profile.circumference, 3)} m`;
}

function removeEnd() {
  tunnel.removeEnd();
  hasEnd = false;
  byId("end-file").value = "";
  say("end-status", "");
  setTransition();
}

/** By the stations in the fields. */
function setTransition() {
  transition = null;
  if (hasEnd) {
    const ends = ["transition-from", "transition-to"].map(id => tunnel.stationOf(byId(id).value));
    const answer = ends.find(end => end.error) || tunnel.setTransition(ends[0].place, ends[1].place);
    if (!answer.error) transition = {from: ends[0].place, to: ends[1].place};
    say("transition-status", answer.error ? `There is no transition. ${answer.error}`
      : "Before it the first profile holds, behind it the second one.", !!answer.error);
  } else {
    say("transition-status", "");
  }
  const range = transition || axis || {from: 0, to: 1};
  Object.assign(byId("slider"), {min: range.from, max: range.to});
  setStation(transition ? (transition.from + transition.to) / 2 : station);
  locateAll();
}

// --- Station of the section ----------------------------------------------------------------------

function setStation(place) {
  station = place;
  byId("station").value = tunnel.stationText(station, 3);
  byId("slider").value = station;
  design = tunnel.designAt(station);
  say("section-status", design.error || `${whereOf(station)}: ${design.elements} elements, ${sizeOf(design)}`, !!design.error);
  section.redraw();
  plan.redraw();
}

function whereOf(place) {
  if (!transition) return "Design profile";
  if (place <= transition.from) return "First profile";
  if (place >= transition.to) return "Second profile";
  const share = (place - transition.from) / (transition.to - transition.from);
  return `Morphed, ${library.fixed(100 * share, 1)} % of the way to the second profile`;
}

function readStation() {
  const answer = tunnel.stationOf(byId("station").value);
  if (answer.error) say("section-status", answer.error, true);
  else setStation(answer.place);
}

function depth() {
  const value = Number(byId("depth").value.replace(",", "."));
  return value >= 0 ? value : 0;
}

const sectionBox = () => design.error || !design.outline ? [-6, -2, 6, 8] : [...design.lowerLeft, ...design.upperRight];
const rowsOfSection = () => rows.filter(row => row.above !== undefined && Math.abs(row.stationing - station) <= depth());

// --- Points --------------------------------------------------------------------------------------

function loadPoints(data, name) {
  byId("bare").onchange = () => loadPoints(data, name);
  const isEmpty = data.length === 0;
  const answer = isEmpty ? {points: [], remarks: [], description: ""} : tunnel.pointsIn(data, byId("bare").checked);
  table = answer.error ? {points: [], remarks: [], description: "", error: `${name} cannot be used. ${answer.error}`} : answer;
  if (isEmpty && name) table.error = `${name} is empty.`;
  if (table.points.length > kMostPoints) {
    table = {...table, points: [], error: `${name}: more than ${kMostPoints} points; tunnel_survey takes any number.`};
  }
  selected = null;
  locateAll();
}

function locate(point) {
  return {...point, ...tunnel.locate(point.id, point.east, point.north, point.height)};
}

/** In pieces, so that the page stays alive: in a transition each point has a profile of its own. */
async function locateAll() {
  const run = ++latestRun;
  const points = [...clicked, ...table.points];
  const located = [];
  rows = [];
  isBusy = true;
  let pause = performance.now() + kLongestPiece;
  let isCleared = false;
  for (const point of points) {
    if (performance.now() > pause) {
      if (!isCleared) showRows();
      isCleared = true;
      say("status", `${located.length} of ${points.length} points are placed.`);
      await new Promise(done => setTimeout(done));
      if (run !== latestRun) return;
      pause = performance.now() + kLongestPiece;
    }
    located.push(locate(point));
  }
  rows = located;
  isBusy = false;
  showRows();
}

function showStatus() {
  const astray = rows.filter(row => row.error);
  const texts = [`${rows.length - astray.length} of ${rows.length} points have a foot on the axis within ${library.largestOffset} m.`];
  if (table.error) texts.unshift(table.error);
  if (table.description) texts.push(`How the table was read: ${table.description}.`);
  texts.push(...listed(table.remarks), ...listed(axis ? astray.map(row => row.error) : []));
  if (!axis) texts.unshift("There is no axis: choose a LandXML file.");
  say("status", texts.join("\n"), !axis || !!table.error || astray.length + table.remarks.length > 0);
}

function textsOf(row) {
  const {fixed, signedFixed} = library;
  const known = (value, format) => value === undefined ? "-" : format(value, kDecimals);
  const grid = [fixed(row.east, kDecimals), fixed(row.north, kDecimals), fixed(row.height, kDecimals)];
  if (row.error) return [row.id, "-", "-", "-", ...grid, "-", "-"];
  return [row.id, tunnel.metresText(row.stationing, kDecimals), signedFixed(row.offset, kDecimals),
          known(row.above, signedFixed), ...grid, known(row.distance, signedFixed), known(row.derolment, signedFixed)];
}

function showRows() {
  byId("save").disabled = isBusy;
  const shown = rows.slice(0, kMostRows);
  if (!shown.some(isSelected)) shown.unshift(...rows.filter(isSelected));
  byId("rows").replaceChildren(...shown.map(row => {
    const line = document.createElement("tr");
    line.classList.toggle("selected", isSelected(row));
    line.onclick = () => select(row);
    line.append(...textsOf(row).map(text => Object.assign(document.createElement("td"), {textContent: text})));
    if (row.error) {
      line.cells[1].className = "fault";
      line.cells[1].colSpan = 3;
      line.cells[1].textContent = `no foot on the axis within ${library.largestOffset} m`;
      line.cells[3].remove();
      line.cells[2].remove();
    }
    return line;
  }));
  if (rows.length > shown.length) {
    const line = byId("rows").insertRow();
    Object.assign(line.insertCell(), {textContent: `and ${rows.length - shown.length} more, all in the CSV`, colSpan: 9});
  }
  showStatus();
  section.redraw();
  plan.redraw();
}

const isSelected = row => row.id === selected?.id && row.line === selected?.line;

function select(row) {
  selected = row;
  if (!row.error) {
    setStation(row.stationing);
    if (!plan.isVisible([row.east, row.north])) plan.centreOn([row.east, row.north], plan.scale);
  }
  showRows();
}

function nearestOf(candidates, placeOf, view, place) {
  const [x, y] = view.pixelsOf(place);
  let nearest = null;
  let least = 8;  // pixels
  for (const row of candidates) {
    const [px, py] = view.pixelsOf(placeOf(row));
    const distance = Math.hypot(px - x, py - y);
    if (distance < least) [nearest, least] = [row, distance];
  }
  return nearest;
}

/** A point of the mouse, to the millimetre. */
function addClicked(grid) {
  const millimetres = value => Math.round(value * 1000) / 1000;
  const line = (clicked[0]?.line ?? 0) - 1;  // no table has it
  clicked.unshift({id: `click ${-line}`, line, east: millimetres(grid.east), north: millimetres(grid.north),
                   height: millimetres(grid.height)});
  if (isBusy) return locateAll();  // which has not come to it
  rows.unshift(locate(clicked[0]));
  select(rows[0]);
}

const placeInPlan = row => [row.east, row.north];
const placeInSection = row => [row.offset, row.above];

function clickPlan(place) {
  const known = nearestOf(rows, placeInPlan, plan, place);
  if (known) return select(known);
  const onAxis = tunnel.locate("The place clicked at", ...place, 0);
  const grid = onAxis.error ? onAxis : tunnel.gridOf(onAxis.stationing, 0, 0);
  if (grid.error) return say("status", grid.error, true);
  addClicked({east: place[0], north: place[1], height: grid.height});
}

function clickSection(place) {
  const known = nearestOf(rowsOfSection(), placeInSection, section, place);
  if (known) return select(known);
  const grid = tunnel.gridOf(station, ...place);
  if (grid.error) return say("status", `No point was added: ${grid.error}`, true);
  addClicked(grid);
}

/** As the program's points_on_axis.csv, with two columns more. */
function csvOf(list) {
  const headings = "point,stationing [m],offset [m],height above axis [m],east [m],north [m],height [m],distance [m],derolment [m]";
  const numberIn = text => text === "-" ? "" : text.replace(/^\+/, "");
  const lineOf = ([name, ...numbers]) => [library.csvCell(name), ...numbers.map(numberIn)].join(",");
  return [headings, ...list.map(row => lineOf(textsOf(row))), ""].join("\n");
}

function save() {
  const link = document.createElement("a");
  link.href = URL.createObjectURL(new Blob([csvOf(rows)], {type: "text/csv"}));
  link.download = "points_on_axis.csv";
  link.click();
  setTimeout(() => URL.revokeObjectURL(link.href), 1000);
}

// --- Drawings ------------------------------------------------------------------------------------

/** Places at round stations, with the direction to the right of the axis. */
function marksAt(step) {
  if (!axis.marks.has(step)) {
    const marks = [];
    for (let i = Math.ceil(axis.from / step); i * step <= axis.to; ++i) {
      const grid = tunnel.gridOf(i * step, 0, 0);
      if (!grid.error) marks.push({place: [grid.east, grid.north], azimuth: grid.azimuth, text: tunnel.stationText(i * step, 0)});
    }
    axis.marks.set(step, marks);
  }
  return axis.marks.get(step);
}

function drawPlan(view) {
  view.frame(["E ", "N "]);
  drawPoints(view, rows.filter(row => view.isVisible(placeInPlan(row))), placeInPlan, () => "point");
  if (!axis) return;
  const [left, upper] = view.metresOf([0, 0]);
  const [right, lower] = view.metresOf(view.size);
  for (const line of axis.lines) {
    const isSeen = line.box[0] <= right && line.box[2] >= left && line.box[1] <= upper && line.box[3] >= lower;
    if (isSeen) view.line(line.points, `element ${kElements[line.kind]}`);
  }
  for (const mark of marksAt(Math.max(10, niceStep(60 / view.scale)))) {
    if (!view.isVisible(mark.place)) continue;
    const right = [Math.cos(mark.azimuth), -Math.sin(mark.azimuth)];
    const end = mark.place.map((value, i) => value + right[i] * 8 / view.scale);
    view.line([mark.place, end], "mark");
    view.text(mark.text, end, "", [right[0] < 0 ? -4 : 4, 4], right[0] < 0 ? "end" : "start");
  }
  const here = tunnel.gridOf(station, 0, 0);
  if (!here.error) {
    const right = [Math.cos(here.azimuth), -Math.sin(here.azimuth)];
    view.line([-14, 14].map(pixels => [here.east, here.north].map((value, i) => value + right[i] * pixels / view.scale)), "foot");
  }
}

/** The selected one on top. Of very many points only some, which is told. */
function drawPoints(view, seen, placeOf, kindOf) {
  const every = Math.ceil(seen.length / kMostCircles);
  const radius = seen.length > kMostRows ? 1.5 : seen.length > kMostNames ? 2.5 : 3.5;
  for (const row of seen.filter((row, i) => i % every === 0 && !isSelected(row))) {
    view.circle(placeOf(row), radius, `site ${kindOf(row)}`).append(shape("title", {}, row.id));
    if (seen.length <= kMostNames) view.text(row.id, placeOf(row), "", [-6, -6], "end");
  }
  for (const row of seen.filter(isSelected)) {
    view.circle(placeOf(row), 4.5, `site selected ${kindOf(row)}`);
    view.text(row.id, placeOf(row), "label", [-8, -8], "end");
  }
  if (every > 1) view.note(`one in ${every} of ${seen.length} points is drawn`);
}

function drawSection(view) {
  const [width, height] = view.size;
  if (design.outline) view.line(design.outline, "design", true);
  view.frame(["", ""]);
  const [left, upper] = view.metresOf([0, 0]);
  const [right, lower] = view.metresOf([width, height]);
  view.line([[left, 0], [right, 0]], "axis");
  view.line([[0, lower], [0, upper]], "axis");
  if (design.joints) {
    for (const joint of design.joints) view.circle(joint, 2.5, "joint");
    view.text("crown", design.crown, "grid-text", [4, -4]);
  }
  const seen = rowsOfSection();
  const named = seen.filter(row => row.foot && (isSelected(row) || seen.length <= kMostNames));
  for (const row of named) view.line([placeInSection(row), row.foot], "foot");
  drawPoints(view, seen, placeInSection, row => row.distance > 0 ? "over" : row.distance < 0 ? "under" : "point");
  for (const row of named.filter(isSelected)) {
    view.text(`${library.signedFixed(row.distance, 3)} m`, placeInSection(row), "label", [8, 12]);
  }
}

// --- Start ---------------------------------------------------------------------------------------

function removeClicked() {
  clicked = [];
  selected = null;
  locateAll();
}

function loadExample() {
  clicked = [];
  byId("transition-from").value = "7+370";
  byId("transition-to").value = "7+400";
  loadAxis(examples.axis.text, examples.axis.name);
  loadDesign(examples.start.text, examples.start.name, false);
  loadDesign(examples.end.text, examples.end.name, true);
  byId("points-text").value = examples.points.text;
  loadPoints(examples.points.text, "The table");
}

function onFile(id, load) {
  byId(id).onchange = async event => {
    const file = event.target.files[0];
    if (file) load(new Uint8Array(await file.arrayBuffer()), file.name);
  };
}

/** The module is in the page as text, compressed. */
async function unpacked(text) {
  const bytes = Uint8Array.from(atob(text), letter => letter.charCodeAt(0));
  return new Response(new Blob([bytes]).stream().pipeThrough(new DecompressionStream("gzip"))).arrayBuffer();
}

function connect() {
  onFile("axis-file", loadAxis);
  onFile("start-file", (data, name) => loadDesign(data, name, false));
  onFile("end-file", (data, name) => loadDesign(data, name, true));
  onFile("points-file", (data, name) => {
    byId("points-text").value = "";
    loadPoints(data, name);
  });
  let pause = 0;  // while somebody types
  byId("points-text").oninput = () => {
    clearTimeout(pause);
    pause = setTimeout(() => loadPoints(byId("points-text").value, byId("points-text").value.trim() ? "The table" : ""), 300);
  };
  byId("transition-from").onchange = byId("transition-to").onchange = setTransition;
  byId("end-remove").onclick = removeEnd;
  byId("clicked-remove").onclick = removeClicked;
  byId("example").onclick = loadExample;
  byId("station").onchange = readStation;
  byId("depth").onchange = () => section.redraw();
  byId("slider").oninput = event => setStation(Number(event.target.value));
  byId("save").onclick = save;
}

window.onerror = problem => say("status", `${problem}. Please load the page anew.`, true);
const plan = new View(byId("plan"), drawPlan, clickPlan);
const section = new View(byId("section"), drawSection, clickSection);
unpacked(packedModule).then(wasmBinary => loadTunnelModule({wasmBinary})).then(module => {
  library = module;
  tunnel = new module.Tunnel();
  connect();
  loadExample();
}, problem => say("status", `This browser cannot run the library: ${problem}`, true));
