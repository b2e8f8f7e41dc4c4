// Drags a cell onto another: at once with a mouse, after a moment of holding with a finger, which scrolls else.

const holdTime = 350;
/** How far a pointer may stray before it counts as moving, in px. */
const slack = 6;

export interface DragHandlers {
  /** The cell under a point of the window. */
  cellAt(x: number, y: number): number | undefined;
  /** The cell is carried, so far over the other one; by that many px. */
  carried(from: number, over: number, x: number, y: number): void;
  /** The end: on which cell, undefined for none. */
  dropped(from: number, on: number | undefined): void;
}

export function makeDraggable(grid: HTMLElement, handlers: DragHandlers): void {
  let pointer: number | undefined;
  let from = 0;
  let start = { x: 0, y: 0 };
  let carrying = false;
  let timer = 0;
  let over: number | undefined;

  const finish = (drop: boolean): void => {
    window.clearTimeout(timer);
    timer = 0;
    pointer = undefined;
    if (carrying) {
      carrying = false;
      handlers.dropped(from, drop ? over : undefined);
      // The click that follows is the end of the drag, not a tap.
      const swallow = (event: Event): void => {
        event.stopPropagation();
        event.preventDefault();
      };
      window.addEventListener("click", swallow, { capture: true, once: true });
      window.setTimeout(() => window.removeEventListener("click", swallow, { capture: true }), 0);
    }
  };

  const pickUp = (): void => {
    carrying = true;
    over = from;
    handlers.carried(from, from, 0, 0);
  };

  grid.addEventListener("pointerdown", (event) => {
    const cell = handlers.cellAt(event.clientX, event.clientY);
    if (cell === undefined || !event.isPrimary || event.button !== 0) {
      return;
    }
    pointer = event.pointerId;
    from = cell;
    start = { x: event.clientX, y: event.clientY };
    if (event.pointerType !== "mouse") {
      timer = window.setTimeout(pickUp, holdTime);
    }
  });
  window.addEventListener("pointermove", (event) => {
    if (event.pointerId !== pointer) {
      return;
    }
    const [x, y] = [event.clientX - start.x, event.clientY - start.y];
    if (!carrying && Math.hypot(x, y) > slack) {
      if (event.pointerType !== "mouse") {
        finish(false);
        return;
      }
      pickUp();
    }
    if (carrying) {
      over = handlers.cellAt(event.clientX, event.clientY) ?? over;
      handlers.carried(from, over ?? from, x, y);
    }
  });
  window.addEventListener("pointerup", (event) => event.pointerId === pointer && finish(true));
  window.addEventListener("pointercancel", (event) => event.pointerId === pointer && finish(false));
  window.addEventListener("keydown", (event) => event.key === "Escape" && carrying && finish(false));
  // A finger that carries must not scroll; the browser asks only listeners that are not passive.
  window.addEventListener("touchmove", (event) => carrying && event.preventDefault(), { passive: false });
  grid.addEventListener("contextmenu", (event) => (carrying || timer !== 0) && event.preventDefault());
}
