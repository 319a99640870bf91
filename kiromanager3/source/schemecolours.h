#pragma once

class MultiPlotScheme;
class QPalette;

/// The scheme as strips show it on a desktop of this palette: one in the default colours, which are those of
/// a light desktop, gets the palette's own on a dark one. Any other stays as the user chose it.
MultiPlotScheme schemeOn(const QPalette& palette, const MultiPlotScheme& scheme);
