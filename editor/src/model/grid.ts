// The grid's size and the places of its cells, by the library's own numbers. Lengths are points, which a page calls px.

import { Frame, preferenceOf, table } from "../table";
import { Configuration } from "./configuration";
import { readFloat, readInteger } from "./stored_values";

const numbers = table.grid;

export interface GridSize {
  columns: number;
  rows: number;
}

function customNumber(configuration: Configuration, key: string, most: number): number {
  const number = readInteger(configuration, key);
  return number < 1 ? numbers.unsetNumber : Math.min(number, most);
}

/** The number of the preset; one beyond the presets stands for the custom size. */
export function presetOf(configuration: Configuration): number {
  const index = readInteger(configuration, numbers.presetKey);
  return index >= 0 && index < numbers.presets.length ? index : numbers.presets.length;
}

/** The size that the phone draws with these settings. */
export function gridSize(configuration: Configuration): GridSize {
  const preset = numbers.presets[presetOf(configuration)];
  return preset ? { columns: preset[0], rows: preset[1] } : customSize(configuration);
}

export function customSize(configuration: Configuration): GridSize {
  return {
    columns: customNumber(configuration, numbers.columnsKey, numbers.mostColumns),
    rows: customNumber(configuration, numbers.rowsKey, numbers.mostRows),
  };
}

/** What the phone draws for a number: a value beyond the usable ones counts as the last usable. */
export function usableFloat(configuration: Configuration, key: string): number {
  const preference = preferenceOf(key);
  const [least, most] = preference?.usable ?? [-Infinity, Infinity];
  return Math.min(Math.max(readFloat(configuration, key, Number(preference?.default)), least), most);
}

/** A size with at least so many cells, the smallest preset if one is large enough; undefined when none is. */
export function sizeFor(cells: number): GridSize | undefined {
  const preset = numbers.presets.find(([columns, rows]) => columns * rows >= cells);
  if (preset) {
    return { columns: preset[0], rows: preset[1] };
  }
  const columns = Math.ceil(Math.sqrt(cells));
  const rows = Math.ceil(cells / columns);
  return columns <= numbers.mostColumns && rows <= numbers.mostRows ? { columns, rows } : undefined;
}

/** The same with a grid of that size: a preset where it is one. */
export function withSize(configuration: Configuration, { columns, rows }: GridSize): Configuration {
  const preset = numbers.presets.findIndex((each) => each[0] === columns && each[1] === rows);
  const custom: [string, string][] = [
    [numbers.columnsKey, String(columns)],
    [numbers.rowsKey, String(rows)],
  ];
  const index = preset >= 0 ? preset : numbers.presets.length;
  return configuration.with([[numbers.presetKey, String(index)], ...(preset >= 0 ? [] : custom)]);
}

/** The lengths of a grid at a scale. */
export class Geometry {
  readonly width: number;
  readonly height: number;
  readonly cellWidth: number;
  readonly cellHeight: number;
  private readonly spacing: number;

  constructor(
    private readonly size: GridSize,
    scale: number,
  ) {
    this.width = numbers.panelWidth * scale;
    this.spacing = numbers.spacing * scale;
    this.cellWidth = (this.width - (size.columns + 1) * this.spacing) / size.columns;
    this.cellHeight = numbers.cellHeightByWidth * this.cellWidth;
    this.height = numbers.headerHeight + size.rows * this.cellHeight + (size.rows + 1) * this.spacing;
  }

  /** The place of a cell, counted from 0 row by row. */
  cellFrame(index: number): Frame {
    const column = index % this.size.columns;
    const row = Math.floor(index / this.size.columns);
    return {
      x: this.spacing + (this.spacing + this.cellWidth) * column,
      y: this.spacing + numbers.headerHeight + (this.spacing + this.cellHeight) * row,
      width: this.cellWidth,
      height: this.cellHeight,
    };
  }
}
