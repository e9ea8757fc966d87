import {
  combinations,
  complete,
  filledClasses,
  groups,
  numbers,
  outliers,
  penguins,
  weather,
  type Row,
} from './knownData.js';

/** What a chart must show, told by its data and not by its drawing. */
export interface Expected {
  /** How many shapes of each kind there are in all panels. */
  marks: Partial<Record<MarkKind, number>>;
  /** Texts that must be there: titles, labels of axes, categories, entries of legends. */
  texts: string[];
  /** The labels of axes as they follow each other, by the titles of the axes; of each panel where they differ. */
  axes?: Record<string, string[] | string[][]>;
  /** The texts over columns and beside rows of panels as they follow each other. */
  columns?: string[];
  rows?: string[];
  /** Words of what the picture must say it leaves out. */
  notes?: string[];
}

/** Points, bars of every kind, corners of lines, and parts of error bars and box plots. */
export type MarkKind = 'dot' | 'rect' | 'line' | 'area' | 'link' | 'slice';

const species = ['Adelie', 'Chinstrap', 'Gentoo'];
const islands = ['Biscoe', 'Dream', 'Torgersen'];
const kindsOfWeather = ['fog', 'rain', 'snow', 'sun'];

/** The labels of an axis of numbers. */
const steps = (from: number, to: number, by: number): string[] =>
  Array.from({ length: 1 + Math.round((to - from) / by) }, (_, at) => String(from + at * by));

const of = (column: string, value: string): Row[] => penguins.filter((row) => row[column] === value);
const masses = (rows: readonly Row[]): number[] => numbers(rows, 'body_mass_g');
const known = penguins.filter((row) => !['', 'NA'].includes(row['sex'] ?? ''));
const sum = (values: readonly number[]): number => values.reduce((total, value) => total + value, 0);

/** The islands in the order of the data, and the species on each. */
const byIsland = groups(penguins, 'island').map((rows): [string, string[]] => [
  rows[0]?.['island'] ?? '',
  species.filter((each) => rows.some((row) => row['species'] === each)),
]);

/** By the name of the chart in the gallery. */
export const gallery: Record<string, Expected> = {
  'scatter-with-reference-line': {
    marks: { dot: complete(penguins, 'flipper_length_mm', 'body_mass_g') },
    texts: [
      'Heavier penguins have longer flippers',
      'Flipper length (mm)',
      'Body mass (g)',
      'Species',
      'Mean length',
      'Mean mass',
      'The lines stand at the means of all penguins.',
      ...species,
    ],
    notes: ['^2 rows with missing values'],
    axes: { 'Flipper length (mm)': steps(170, 230, 10), 'Body mass (g)': steps(3000, 6000, 500) },
  },
  'scatter-with-function-line': {
    marks: { dot: complete(of('species', 'Gentoo'), 'bill_length_mm', 'bill_depth_mm') },
    texts: ['Bills of Gentoo penguins', 'Bill length (mm)', 'Bill depth (mm)', 'Best fit'],
    axes: { 'Bill length (mm)': steps(42, 60, 2), 'Bill depth (mm)': steps(12, 18, 2) },
  },
  'dot-plot': {
    marks: { dot: complete(penguins, 'flipper_length_mm') },
    texts: ['Flipper lengths of penguins', 'Flipper length (mm)', ...species],
    notes: ['^2 rows with missing values'],
    axes: { 'Flipper length (mm)': steps(170, 230, 10) },
  },
  'clustered-bars': {
    marks: { rect: combinations(penguins, 'island', 'species') },
    texts: [
      'Only Adelie penguins live on all three islands',
      'Island',
      'Number of penguins',
      ...islands,
      ...species,
    ],
    axes: { Island: ['Torgersen', 'Biscoe', 'Dream'], 'Number of penguins': steps(0, 120, 20) },
  },
  'stacked-bars': {
    marks: { rect: combinations(penguins, 'species', 'sex') },
    texts: ['As many females as males', 'Species', 'Number of penguins', ...species, 'female', 'male'],
    axes: { Species: species, 'Number of penguins': steps(0, 140, 20) },
  },
  'sorted-bars': {
    marks: { rect: combinations(weather, 'weather') - 1 },
    texts: ['Weather in Seattle, 2012 to 2015', 'Weather', 'Number of days', ...kindsOfWeather],
    axes: { Weather: ['sun', 'snow', 'rain', 'fog'], 'Number of days': steps(0, 600, 100) },
  },
  'histogram-with-summary': {
    marks: { rect: filledClasses(masses(penguins), 2500, 250) },
    texts: ['Body mass of penguins', 'Body mass (g)', 'Number of penguins', 'N = 342'],
    notes: ['^2 rows with missing values'],
    axes: { 'Body mass (g)': steps(2500, 6500, 500), 'Number of penguins': steps(0, 50, 10) },
  },
  'box-plot-with-outliers': {
    marks: { rect: 3, dot: sum(groups(penguins, 'species').map((rows) => outliers(masses(rows)))) },
    texts: ['Body mass of penguins', 'Species', 'Body mass (g)', ...species],
    notes: ['^2 rows with missing values'],
    axes: { Species: species, 'Body mass (g)': steps(3000, 6000, 500) },
  },
  'error-bars': {
    marks: { dot: 3, link: 9 },
    texts: ['Gentoo penguins are the heaviest', 'Species', 'Mean body mass (g)', ...species],
    notes: ['^2 rows with missing values'],
    axes: { Species: species, 'Mean body mass (g)': steps(3600, 5200, 200) },
  },
  'line-over-dates': {
    marks: { line: 2 },
    texts: ['Temperatures in Seattle', '2012', 'Temperature (°C)', 'Freezing', 'Warmest', 'Coldest'],
    axes: {
      '2012': ['2012-01-01', '2012-04-01', '2012-07-01', '2012-10-01', '2013-01-01'],
      'Temperature (°C)': steps(0, 35, 5),
    },
  },
  'secondary-y-axis': {
    marks: { rect: combinations(weather, 'weather') },
    texts: [
      'Weather in Seattle, 2012 to 2015',
      'Number of days',
      'Share of all days',
      'drizzle',
      ...kindsOfWeather,
    ],
    axes: {
      Weather: ['drizzle', ...kindsOfWeather],
      'Number of days': steps(0, 600, 100),
      'Share of all days': steps(0, 40, 10).map((text) => `${text}%`),
    },
  },
  'cross-panels': {
    marks: { dot: complete(known, 'bill_length_mm', 'bill_depth_mm') },
    texts: ['Bills of penguins', 'Bill length (mm)', 'Bill depth (mm)', ...species, 'female', 'male'],
    axes: { 'Bill length (mm)': steps(35, 60, 5), 'Bill depth (mm)': steps(14, 20, 2) },
    columns: ['Species', ...species],
    rows: ['male', 'female', 'Sex'],
  },
  'nested-panels': {
    marks: {},
    texts: ['Body mass of penguins by island', 'Body mass (g)', 'Number of penguins', ...islands, ...species],
    notes: ['^2 rows with missing values'],
    axes: { 'Body mass (g)': ['4000', '6000'], 'Number of penguins': steps(0, 40, 5) },
    columns: [
      'Island',
      ...byIsland.map(([island]) => island),
      'Species',
      ...byIsland.flatMap(([, own]) => own),
    ],
  },
  'panel-highlight': {
    marks: { dot: complete(penguins, 'flipper_length_mm', 'body_mass_g'), line: 1 },
    texts: ['Flippers of penguins', 'Body mass (g)', 'Flipper length (mm)', 'Mean Gentoo', ...species],
    notes: ['^2 rows with missing values'],
    axes: { 'Body mass (g)': steps(3000, 6000, 1000), 'Flipper length (mm)': steps(170, 230, 10) },
    columns: ['Species', ...species],
  },
  'blended-panels': {
    marks: { line: 2 },
    texts: ['Temperatures in Seattle, 2012 to 2015', 'Date', 'Temperature (°C)', 'Warmest', 'Coldest'],
    axes: { Date: ['2012-01-01', '2014-01-01'], 'Temperature (°C)': ['\u22125', ...steps(0, 35, 5)] },
    columns: ['Warmest', 'Coldest'],
  },
  'population-pyramid': {
    marks: {},
    texts: ['Male penguins are heavier', 'Body mass (g)', 'female', 'male'],
    axes: {
      'Body mass (g)': steps(3000, 6000, 500),
      // Where both panels begin there is one label.
      'Number of penguins': [steps(0, 40, 5), steps(5, 40, 5)],
    },
    columns: ['Sex', 'female', 'male'],
  },
  'scatter-in-3d': {
    marks: {},
    texts: ['Bills and body mass of penguins'],
    notes: ['three dimensions|third dimension|3-D|space', '2 rows with missing values'],
    axes: { 'Bill length (mm)': steps(35, 60, 5), 'Bill depth (mm)': steps(13, 21, 1) },
  },
};

export interface TemplateChart extends Expected {
  template: string;
  data: string;
  slots: string[];
}

/** A chart of each visualization template. */
export const templates: TemplateChart[] = [
  {
    template: 'bar_of_counts',
    data: 'penguins',
    slots: ['x=species', 'Title=Penguins by species'],
    marks: { rect: combinations(penguins, 'species') },
    texts: ['Penguins by species', ...species],
    axes: { species, Count: steps(0, 140, 20) },
  },
  {
    template: 'box_plot',
    data: 'penguins',
    slots: ['x=species', 'y=body_mass_g', 'Title=Body mass by species'],
    marks: { rect: 3, dot: sum(groups(penguins, 'species').map((rows) => outliers(masses(rows)))) },
    texts: ['Body mass by species', 'body_mass_g', ...species],
    axes: { species, body_mass_g: steps(3000, 6000, 500) },
    notes: ['^2 rows with missing values'],
  },
  {
    template: 'clustered_bar',
    data: 'penguins',
    slots: ['x=island', 'cluster=species', 'Title=Penguins by island'],
    marks: { rect: combinations(penguins, 'island', 'species') },
    texts: ['Penguins by island', ...islands, ...species],
    axes: { island: byIsland.map(([island]) => island), Count: steps(0, 120, 20) },
  },
  {
    template: 'grouped_scatter',
    data: 'penguins',
    slots: ['x=bill_length_mm', 'y=bill_depth_mm', 'group=species', 'Title=Bills'],
    marks: { dot: complete(penguins, 'bill_length_mm', 'bill_depth_mm') },
    texts: ['Bills', 'bill_length_mm', 'bill_depth_mm', ...species],
    axes: { bill_length_mm: steps(35, 60, 5), bill_depth_mm: steps(13, 21, 1) },
    notes: ['^2 rows with missing values'],
  },
  {
    template: 'histogram',
    data: 'penguins',
    slots: ['x=flipper_length_mm', 'bins=12', 'Title=Flippers'],
    marks: {},
    texts: ['Flippers', 'flipper_length_mm'],
    axes: { flipper_length_mm: steps(170, 230, 10), Frequency: steps(0, 60, 10) },
    notes: ['^2 rows with missing values'],
  },
  {
    template: 'line_over_time',
    data: 'seattle-weather',
    slots: ['time=date', 'y=temp_max', 'y=temp_min', 'Title=Temperatures'],
    marks: { line: 2 },
    texts: ['Temperatures'],
    axes: { date: steps(2012, 2016, 1), 'temp_max, temp_min': ['\u22125', ...steps(0, 35, 5)] },
  },
  {
    template: 'panelled_scatter',
    data: 'penguins',
    slots: ['x=flipper_length_mm', 'y=body_mass_g', 'columns=species', 'Title=Flippers and mass'],
    marks: { dot: complete(penguins, 'flipper_length_mm', 'body_mass_g') },
    texts: ['Flippers and mass', 'flipper_length_mm', 'body_mass_g', ...species],
    axes: { flipper_length_mm: steps(180, 220, 20), body_mass_g: steps(3000, 6000, 500) },
    columns: ['species', ...species],
    notes: ['^2 rows with missing values'],
  },
  {
    template: 'pie_of_shares',
    data: 'penguins',
    slots: ['slices=island', 'Title=Penguins by island'],
    marks: { slice: combinations(penguins, 'island') },
    texts: ['Penguins by island', ...islands],
  },
];
