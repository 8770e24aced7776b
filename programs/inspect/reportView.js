"use strict";
// The view in space of a report: three.js draws what `data` holds, with a switch for each part.
function orvelView(data) {
  const view = document.getElementById("view");
  const controls = document.getElementById("controls");
  const still = document.getElementById("still");
  let renderer;
  try {
    renderer = new THREE.WebGLRenderer({ antialias: true, preserveDrawingBuffer: true });
  } catch (noWebGl) {
    return; // the still picture stays
  }
  still.hidden = true;
  view.hidden = controls.hidden = false;

  const bytes = text => Uint8Array.from(atob(text), c => c.charCodeAt(0)).buffer;
  const scene = new THREE.Scene();
  const camera = new THREE.OrthographicCamera(-1, 1, 1, -1, -20, 20);
  camera.up.set(0, 0, 1);
  const light = new THREE.DirectionalLight(0xffffff, 0.75);
  light.position.set(-0.4, 0.6, 1);
  camera.add(light);
  scene.add(camera, new THREE.AmbientLight(0xffffff, 0.45));

  function objectOf(part) {
    const geometry = new THREE.BufferGeometry();
    geometry.setAttribute("position", new THREE.BufferAttribute(new Float32Array(bytes(part.places)), 3));
    if (part.indices !== undefined) {
      geometry.setIndex(new THREE.BufferAttribute(new Uint32Array(bytes(part.indices)), 1));
    }
    switch (part.style) {
      case "surface":
        return new THREE.Mesh(geometry, new THREE.MeshPhongMaterial({ shininess: 0, specular: 0,
          color: part.colour, side: THREE.DoubleSide, flatShading: true,
          polygonOffset: true, polygonOffsetFactor: 1, polygonOffsetUnits: 1 }));
      case "wire":
        return new THREE.LineSegments(new THREE.EdgesGeometry(geometry, 1),
          new THREE.LineBasicMaterial({ color: part.colour }));
      case "lines":
        return new THREE.LineSegments(geometry, new THREE.LineBasicMaterial({ color: part.colour }));
      default:
        return new THREE.Points(geometry, new THREE.PointsMaterial({
          color: part.colour, size: 3, sizeAttenuation: false }));
    }
  }

  const orbit = new THREE.OrbitControls(camera, renderer.domElement);
  orbit.enableKeys = false;
  orbit.enablePan = true;
  const bar = document.createElement("div");
  bar.id = "scale";
  view.append(renderer.domElement, bar);
  renderer.domElement.setAttribute("aria-hidden", "true");

  const dark = window.matchMedia("(prefers-color-scheme: dark)");
  let pending = false;
  function redraw() {
    if (pending) return;
    pending = true;
    requestAnimationFrame(() => { pending = false; draw(); });
  }
  function draw() {
    renderer.setClearColor(dark.matches ? 0x1b2029 : 0xffffff);
    renderer.render(scene, camera);
    showScale();
  }

  // A bar of 1, 2 or 5 times a power of ten, at most a quarter of the width.
  function showScale() {
    const perPixel = (camera.right - camera.left) / camera.zoom * data.radius / view.clientWidth;
    const widest = perPixel * view.clientWidth / 4;
    const power = Math.pow(10, Math.floor(Math.log10(widest)));
    const length = [5, 2, 1].map(n => n * power).find(n => n <= widest);
    bar.style.width = length / perPixel + "px";
    bar.textContent = Number(length.toPrecision(1)) + (data.unit ? " " + data.unit : "");
  }

  function fit() {
    const w = view.clientWidth, h = view.clientHeight;
    renderer.setPixelRatio(window.devicePixelRatio);
    renderer.setSize(w, h);
    const reach = 1.08 / Math.min(w, h);
    [camera.left, camera.right, camera.bottom, camera.top] = [-reach * w, reach * w, -reach * h, reach * h];
    camera.updateProjectionMatrix();
    redraw();
  }

  function look(x, y, z) {
    camera.zoom = 1;
    orbit.target.set(0, 0, 0);
    camera.position.set(5 * x, 5 * y, 5 * z);
    camera.updateProjectionMatrix();
    orbit.update();
    redraw();
  }
  const views = [["corner", () => look(0.62, -0.62, 0.48)], ["front", () => look(0, -1, 0)],
                 ["side", () => look(1, 0, 0)], ["top", () => look(0, -1e-4, 1)]];

  for (const part of data.parts) {
    const object = objectOf(part);
    object.visible = part.on;
    scene.add(object);
    const label = document.createElement("label");
    const box = document.createElement("input");
    const chip = document.createElement("span");
    box.type = "checkbox";
    box.checked = part.on;
    box.addEventListener("change", () => { object.visible = box.checked; redraw(); });
    chip.className = "chip";
    chip.style.background = part.colour;
    label.append(box, chip, part.name);
    controls.append(label);
  }
  for (const [name, show] of views) {
    const button = document.createElement("button");
    button.type = "button";
    button.textContent = name;
    button.addEventListener("click", show);
    controls.append(button);
  }

  function turn(azimuth, polar) {
    const s = new THREE.Spherical();
    const toY = new THREE.Quaternion().setFromUnitVectors(camera.up, new THREE.Vector3(0, 1, 0));
    const offset = camera.position.clone().sub(orbit.target).applyQuaternion(toY);
    s.setFromVector3(offset);
    s.theta += azimuth;
    s.phi = Math.max(1e-4, Math.min(Math.PI - 1e-4, s.phi + polar));
    offset.setFromSpherical(s).applyQuaternion(toY.inverse());
    camera.position.copy(orbit.target).add(offset);
    orbit.update();
    redraw();
  }
  function zoom(factor) {
    camera.zoom = Math.max(0.1, Math.min(100, camera.zoom * factor));
    camera.updateProjectionMatrix();
    redraw();
  }
  const keys = { ArrowLeft: () => turn(-0.1, 0), ArrowRight: () => turn(0.1, 0),
                 ArrowUp: () => turn(0, -0.1), ArrowDown: () => turn(0, 0.1),
                 "+": () => zoom(1.2), "-": () => zoom(1 / 1.2),
                 0: views[0][1], 1: views[1][1], 2: views[2][1], 3: views[3][1] };
  view.addEventListener("keydown", event => {
    if (keys[event.key] && !event.ctrlKey && !event.metaKey && !event.altKey) {
      event.preventDefault();
      keys[event.key]();
    }
  });

  orbit.addEventListener("change", redraw);
  dark.addEventListener("change", redraw);
  window.addEventListener("resize", fit);
  fit();
  look(0.62, -0.62, 0.48);
}
