// What there was before, to go back to.

/** Keeps states; changes of one kind that follow each other quickly count as one. */
export class History<State> {
  private past: State[];
  private future: State[] = [];
  private lastKind = "";
  private lastTime = 0;

  constructor(
    private state: State,
    past: State[] = [],
  ) {
    this.past = past;
  }

  get present(): State {
    return this.state;
  }
  get canUndo(): boolean {
    return this.past.length > 0;
  }
  get canRedo(): boolean {
    return this.future.length > 0;
  }

  /** The latest states before the present, the newest last. */
  latest(count: number): State[] {
    return this.past.slice(-count);
  }

  /** A kind of "" never joins what was before. The time is in milliseconds. */
  change(next: State, kind: string, time: number): void {
    if (next === this.state) {
      return;
    }
    const joins = kind !== "" && kind === this.lastKind && time - this.lastTime < joinedWithin && this.canUndo;
    if (!joins) {
      this.past = [...this.past.slice(1 - mostSteps), this.state];
    }
    this.state = next;
    this.future = [];
    this.lastKind = kind;
    this.lastTime = time;
  }

  undo(): void {
    const before = this.past.pop();
    if (before !== undefined) {
      this.future.push(this.state);
      this.state = before;
      this.lastKind = "";
    }
  }

  redo(): void {
    const after = this.future.pop();
    if (after !== undefined) {
      this.past.push(this.state);
      this.state = after;
      this.lastKind = "";
    }
  }
}

const joinedWithin = 1500;
const mostSteps = 500;
