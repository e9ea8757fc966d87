// These tests stand without the rest of support/, so that they can run against any provider of the model.
#include "../../support/schema_validator.cpp"
