// The picture: the model in a space in which it has its centre at the origin and a radius of 1, whatever its units are, and
// an eye that goes around it. It is drawn when something has changed, so that a page that nobody touches costs nothing.

import {Box3, Color, ColorManagement, Group, LinearSRGBColorSpace, OrthographicCamera, PerspectiveCamera, Scene, Vector3,
        WebGLRenderer} from 'three';
import {OrbitControls} from 'three/addons/controls/OrbitControls.js';
import {GLTFLoader} from 'three/addons/loaders/GLTFLoader.js';

import {eyeOf, sidesOf} from './eye.js';
import {displayLooks, lamps} from './looks.js';

const UPRIGHT = new Vector3(0, 1, 0);
const NEAREST = 1e-3;  // the near plane by the far one, at least: depth has few bits
const STEP = Math.PI / 24;  // what an arrow key turns by
const CLOSER = 0.9;

function bytesOf(base64) {
  const text = atob(base64.trim());
  const bytes = new Uint8Array(text.length);
  for (let i = 0; i < text.length; ++i) bytes[i] = text.charCodeAt(i);
  return bytes.buffer;
}

// The axis that stays upright while somebody turns the model: the world's own, unless the view is tilted to a side.
function uprightOf(axes) {
  return Math.abs(axes.right.y) < 1e-3 ? UPRIGHT : axes.up;
}

export class Picture extends EventTarget {
  view = null;  // the one that is shown, null once somebody has turned the model

  constructor(canvas, content) {
    super();
    ColorManagement.enabled = false;
    this.canvas = canvas;
    this.renderer = new WebGLRenderer({canvas, antialias: true});
    this.renderer.outputColorSpace = LinearSRGBColorSpace;
    this.renderer.setClearColor(new Color(...content.background.map(byte => byte / 255)));
    this.scene = new Scene();
    this.box = new Box3();
    this.cameras = {perspective: new PerspectiveCamera(), parallel: new OrthographicCamera()};
    this.lamps = lamps();
    this.scene.add(...Object.values(this.cameras));
    this.camera = this.cameras.perspective;
    this.isStill = matchMedia('(prefers-reduced-motion: reduce)').matches;
  }

  async load(base64) {
    const {scene: model} = await new GLTFLoader().parseAsync(bytesOf(base64), '');
    displayLooks(model);
    const bounds = new Box3().setFromObject(model, true);
    this.isEmpty = bounds.isEmpty();
    const centre = this.isEmpty ? new Vector3() : bounds.getCenter(new Vector3());
    const radius = bounds.min.distanceTo(bounds.max) / 2;
    const scale = Number.isFinite(radius) && radius > 0 ? 1 / radius : 1;
    this.fromModel = point => point.clone().sub(centre).multiplyScalar(scale);
    this.box = this.isEmpty ? new Box3(new Vector3(), new Vector3())
                            : new Box3(this.fromModel(bounds.min), this.fromModel(bounds.max));
    const space = new Group();
    space.scale.setScalar(scale);
    space.position.copy(centre).multiplyScalar(-scale);
    space.add(model);
    this.scene.add(space);
    new ResizeObserver(() => this.resize()).observe(this.canvas);
    this.canvas.addEventListener('keydown', event => this.press(event));
  }

  get aspect() {
    return Math.max(this.canvas.clientWidth, 1) / Math.max(this.canvas.clientHeight, 1);
  }

  show(view) {
    const placed = {...view, eye: view.eye && this.fromModel(view.eye)};
    const {eye, span} = eyeOf(placed, this.box, this.aspect);
    this.first ??= view;
    this.camera = view.isParallel ? this.cameras.parallel : this.cameras.perspective;
    this.camera.add(...this.lamps);
    this.camera.zoom = 1;
    this.lens = {fov: view.fov, span};
    this.camera.up.copy(uprightOf(view.axes));
    // Straight from above or below nothing says which way is up in the picture, so the eye stands beside that place.
    const {back, up} = view.axes;
    const pole = back.dot(this.camera.up);
    const towards = Math.abs(pole) > 0.9999 ? back.clone().addScaledVector(up, -1e-5 * Math.sign(pole)) : back;
    const depth = Math.max(eye.dot(back), 0.05);
    const target = eye.clone().addScaledVector(back, -depth);
    this.camera.position.copy(target).addScaledVector(towards, depth);
    this.turnAround(target);
    this.setView(view);
    this.resize();
  }

  // Lets the mouse, fingers and keys move the camera about a point.
  turnAround(target) {
    this.controls?.dispose();
    this.controls = new OrbitControls(this.camera, this.canvas);
    this.controls.target.copy(target);
    this.controls.enableDamping = !this.isStill;
    this.controls.dampingFactor = 0.15;
    this.controls.minDistance = 1e-3;
    this.controls.maxDistance = Math.max(200, 2 * this.camera.position.distanceTo(target));
    this.controls.update();
    this.controls.addEventListener('change', () => this.draw());
    this.controls.addEventListener('start', () => this.setView(null));
  }

  setView(view) {
    this.view = view;
    this.dispatchEvent(new Event('view'));
  }

  press(event) {
    if (event.ctrlKey || event.metaKey || event.altKey) return;
    const actions = {
      ArrowLeft: () => this.controls.rotateLeft(STEP),
      ArrowRight: () => this.controls.rotateLeft(-STEP),
      ArrowUp: () => this.controls.rotateUp(STEP),
      ArrowDown: () => this.controls.rotateUp(-STEP),
      '+': () => this.controls.dollyIn(CLOSER),
      '=': () => this.controls.dollyIn(CLOSER),
      '-': () => this.controls.dollyOut(CLOSER),
      0: () => this.show(this.first),
      Home: () => this.show(this.first),
    };
    const action = actions[event.key];
    if (!action) return;
    event.preventDefault();
    this.setView(null);
    action();
    this.draw();
  }

  resize() {
    if (this.canvas.clientWidth === 0 || this.canvas.clientHeight === 0) return;
    this.renderer.setPixelRatio(devicePixelRatio);
    this.renderer.setSize(this.canvas.clientWidth, this.canvas.clientHeight, false);
    if (this.view && this.view.eye === null && this.shownAspect !== this.aspect) {
      this.shownAspect = this.aspect;
      this.show(this.view);
      return;
    }
    this.draw();
  }

  draw() {
    this.request ??= requestAnimationFrame(() => {
      this.request = null;
      this.controls.update();  // asks for the next drawing while it moves
      this.setLens();
      this.renderer.render(this.scene, this.camera);
    });
  }

  // Spreads the depth over what the eye sees of the model.
  setLens() {
    const camera = this.camera;
    const [across, upwards] = sidesOf(this.aspect);
    const far = camera.position.length() + 1.02;
    camera.near = Math.max(far - 2.04, far * NEAREST);
    camera.far = far;
    if (camera.isOrthographicCamera) {
      camera.right = this.lens.span * across / 2;
      camera.left = -camera.right;
      camera.top = this.lens.span * upwards / 2;
      camera.bottom = -camera.top;
    } else {
      camera.aspect = this.aspect;
      camera.fov = 2 * Math.atan(Math.tan(this.lens.fov / 2) * upwards) * 180 / Math.PI;
    }
    camera.updateProjectionMatrix();
  }
}
