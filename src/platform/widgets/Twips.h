#pragma once

class QWidget;

/// One place that converts twips (1/1440 inch) through the widget's logical resolution.
namespace nv::twips {

/// To the nearest pixel. 1380 twips are 92 pixels at 96 dpi, and back.
int aPixeles(int twips, const QWidget *widget);
int dePixeles(int pixeles, const QWidget *widget);
/// The same for what holds letters: a form drawn for the standard letter grows with a larger one.
int conLetra(int twips, const QWidget *widget);

} // namespace nv::twips
