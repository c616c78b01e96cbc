#include "platform/widgets/Teclas.h"

#include <QKeyEvent>
#include <algorithm>
#include <iterator>

namespace nv::teclas {

namespace {

struct Par
{
    int tecla;
    qint16 codigo;
};

constexpr Par Fijas[] = {
    {Qt::Key_Backspace, 8},    {Qt::Key_Tab, 9},    {Qt::Key_Backtab, 9}, {Qt::Key_Clear, 12},
    {Qt::Key_Return, 13},      {Qt::Key_Enter, 13}, {Qt::Key_Shift, 16},  {Qt::Key_Control, 17},
    {Qt::Key_Alt, 18},         {Qt::Key_AltGr, 18}, {Qt::Key_Pause, 19},  {Qt::Key_CapsLock, 20},
    {Qt::Key_Escape, 27},      {Qt::Key_Space, 32}, {Qt::Key_PageUp, 33}, {Qt::Key_PageDown, 34},
    {Qt::Key_End, 35},         {Qt::Key_Home, 36},  {Qt::Key_Left, 37},   {Qt::Key_Up, 38},
    {Qt::Key_Right, 39},       {Qt::Key_Down, 40},  {Qt::Key_Print, 44},  {Qt::Key_Insert, 45},
    {Qt::Key_Delete, 46},      {Qt::Key_Help, 47},  {Qt::Key_Menu, 93},   {Qt::Key_NumLock, 144},
    {Qt::Key_ScrollLock, 145},
};

constexpr Par Numericas[] = {
    {Qt::Key_Asterisk, 106}, {Qt::Key_Plus, 107},   {Qt::Key_Minus, 109},
    {Qt::Key_Comma, 110},    {Qt::Key_Period, 110}, {Qt::Key_Slash, 111},
};

/// The signs of a Spanish keyboard, by the key that they share with a digit or with another sign.
constexpr Par Signos[] = {
    {Qt::Key_Exclam, '1'},       {Qt::Key_QuoteDbl, '2'},  {Qt::Key_periodcentered, '3'}, {Qt::Key_Dollar, '4'},
    {Qt::Key_Percent, '5'},      {Qt::Key_Ampersand, '6'}, {Qt::Key_Slash, '7'},          {Qt::Key_ParenLeft, '8'},
    {Qt::Key_ParenRight, '9'},   {Qt::Key_Equal, '0'},     {Qt::Key_Plus, 187},           {Qt::Key_Asterisk, 187},
    {Qt::Key_Comma, 188},        {Qt::Key_Semicolon, 188}, {Qt::Key_Minus, 189},          {Qt::Key_Underscore, 189},
    {Qt::Key_Period, 190},       {Qt::Key_Colon, 190},     {Qt::Key_Ntilde, 192},         {Qt::Key_Ccedilla, 191},
    {Qt::Key_Apostrophe, 219},   {Qt::Key_Question, 219},  {Qt::Key_masculine, 220},      {Qt::Key_exclamdown, 221},
    {Qt::Key_questiondown, 221}, {Qt::Key_Less, 226},      {Qt::Key_Greater, 226},
};

template <std::size_t N>
qint16 buscar(const Par (&tabla)[N], int tecla)
{
    const auto par =
        std::find_if(std::begin(tabla), std::end(tabla), [tecla](const Par &p) { return p.tecla == tecla; });
    return par == std::end(tabla) ? qint16{0} : par->codigo;
}

} // namespace

qint16 codigo(const QKeyEvent &evento)
{
    const int tecla = evento.key();
    if (evento.modifiers() & Qt::KeypadModifier) {
        if (tecla >= Qt::Key_0 && tecla <= Qt::Key_9)
            return static_cast<qint16>(96 + tecla - Qt::Key_0);
        if (const qint16 numerica = buscar(Numericas, tecla))
            return numerica;
    }
    if ((tecla >= Qt::Key_0 && tecla <= Qt::Key_9) || (tecla >= Qt::Key_A && tecla <= Qt::Key_Z))
        return static_cast<qint16>(tecla);
    if (tecla >= Qt::Key_F1 && tecla <= Qt::Key_F24)
        return static_cast<qint16>(112 + tecla - Qt::Key_F1);
    if (const qint16 fija = buscar(Fijas, tecla))
        return fija;
    return buscar(Signos, tecla);
}

qint16 estado(Qt::KeyboardModifiers modificadores)
{
    return static_cast<qint16>((modificadores & Qt::ShiftModifier ? 1 : 0) +
                               (modificadores & Qt::ControlModifier ? 2 : 0) +
                               (modificadores & Qt::AltModifier ? 4 : 0));
}

qint16 boton(Qt::MouseButtons botones)
{
    return static_cast<qint16>((botones & Qt::LeftButton ? 1 : 0) + (botones & Qt::RightButton ? 2 : 0) +
                               (botones & Qt::MiddleButton ? 4 : 0));
}

bool esIntro(const QKeyEvent &evento)
{
    return evento.key() == Qt::Key_Return || evento.key() == Qt::Key_Enter;
}

bool esTexto(const QKeyEvent &evento)
{
    const QString texto = evento.text();
    if (texto.isEmpty() || !(texto.front().isPrint() || texto.front().isSurrogate()))
        return false;
    const Qt::KeyboardModifiers m = evento.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    return m == Qt::NoModifier || m == Qt::GroupSwitchModifier || m == (Qt::ControlModifier | Qt::AltModifier);
}

bool sinModificar(const QKeyEvent &evento)
{
    return (evento.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

} // namespace nv::teclas
