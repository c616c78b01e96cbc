#pragma once

#include <QString>

/// Check digits of EAN barcodes (modulo 10, weights 3 and 1). A character that is no ASCII digit counts as 0.
namespace nv::ean {

/// Check digit of data digits: positions 1 to 12 from the left; over 8 characters the even positions weigh 3, else the
/// odd ones.
qint16 digitoControl(QStringView datos);

/// Whether the last digit is the check digit of the others. Texts under 7 characters and texts with anything but
/// digits are no EAN and not verified: true.
bool esValido(QStringView codigo);

} // namespace nv::ean
