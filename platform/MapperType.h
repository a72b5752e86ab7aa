#pragma once

/// How the solver maps an image onto the surface. Any stored number may be cast to it; 0, 1, 5, 7 and 8 are known to
/// the geometry section, every other number counts as 2. Stored numbers: do not change.
enum MapperType : int {
    MapperLinear = 0,
    MapperPolynomial = 1,
    MapperDefault = 2,
    MapperSpline = 5,
    MapperPerspective = 7,
    MapperHybrid = 8
};
