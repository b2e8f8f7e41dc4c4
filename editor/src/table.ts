// What the page knows of the library. Everything here is written by the library's own tables when the page is built.

export interface Words {
  en: string;
  zh: string;
}

export interface Preference {
  key: string;
  type: "bool" | "float" | "integer" | "string";
  /** Absent where it depends on the phone. */
  default?: boolean | number | string;
  slider?: [number, number];
  usable?: [number, number];
  range?: [number, number];
  /** Which part of the settings panel edits it, in which row of that part, and the row's title. */
  group?: "switches" | "latency" | "sliders" | "colors";
  position?: number;
  row?: Words;
  text: Words;
}

export interface Frame {
  x: number;
  y: number;
  width: number;
  height: number;
}

interface LibraryTable {
  version: string;
  prefix: string;
  slotPrefix: string;
  /** In bytes, once unpacked: what is longer the phone refuses. */
  largestText: number;
  hidesInWeChatKey: string;
  logKey: string;
  logEnabledKey: string;
  toasts: { imported: string; unreadable: string; nothingCopied: string };
  grid: {
    presets: [number, number][];
    presetKey: string;
    columnsKey: string;
    rowsKey: string;
    unsetNumber: number;
    mostColumns: number;
    mostRows: number;
    panelWidth: number;
    spacing: number;
    headerHeight: number;
    cellHeightByWidth: number;
    titleFrame: Frame;
    markerSize: number;
    markerTop: number;
    markerFromRight: number;
    textInset: number;
  };
  look: {
    title: string;
    titleSize: number;
    titleAlpha: number;
    panelCornerRadius: number;
    cellCornerRadius: number;
    backgroundAlpha: number;
    cellAlpha: number;
    textAlpha: number;
    titleUnitsAtLeast: number;
    titleUnitsPerSquare: number;
    scaleKey: string;
    alphaKey: string;
    fontSizeKey: string;
    backgroundKey: string;
    cellKey: string;
    textKey: string;
  };
  preferences: Preference[];
}

// The build puts the table in the place of this name.
declare const LIBRARY_TABLE: LibraryTable;

export const table = LIBRARY_TABLE;

const byKey = new Map(table.preferences.map((each) => [each.key, each]));

/** The library's preference of that key. */
export function preferenceOf(key: string): Preference | undefined {
  return byKey.get(key);
}

/** Those of one part of the settings panel, from top to bottom. */
export function preferencesOf(group: Preference["group"]): Preference[] {
  const found = table.preferences.filter((each) => each.group === group);
  return found.sort((one, other) => (one.position ?? 0) - (other.position ?? 0));
}

/** The most cells that a grid can have. */
export const mostCells = table.grid.mostColumns * table.grid.mostRows;
