package kestrel.pdl;

/** In which panels something is drawn: those where a panel variable has one category. */
record Only(Place place, Variable variable, String code) {}
