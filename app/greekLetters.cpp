#include "app/greekLetters.h"

#include <QtGlobal>
#include <array>

namespace {

constexpr std::array<NamedCharacter, 49> letters = {{
    {u'α', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "alpha")},
    {u'β', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "beta")},
    {u'γ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "gamma")},
    {u'δ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "delta")},
    {u'ε', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "epsilon")},
    {u'ζ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "zeta")},
    {u'η', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "eta")},
    {u'θ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "theta")},
    {u'ι', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "iota")},
    {u'κ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "kappa")},
    {u'λ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "lambda")},
    {u'μ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "mu")},
    {u'ν', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "nu")},
    {u'ξ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "xi")},
    {u'ο', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "omicron")},
    {u'π', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "pi, a letter; the constant is called pi")},
    {u'ρ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "rho")},
    {u'σ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "sigma")},
    {u'τ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "tau")},
    {u'υ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "upsilon")},
    {u'φ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "phi")},
    {u'χ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "chi")},
    {u'ψ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "psi")},
    {u'ω', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "omega")},
    {u'Α', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "capital alpha")},
    {u'Β', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "capital beta")},
    {u'Γ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "capital gamma")},
    {u'Δ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "capital delta")},
    {u'Ε', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "capital epsilon")},
    {u'Ζ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "capital zeta")},
    {u'Η', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "capital eta")},
    {u'Θ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "capital theta")},
    {u'Ι', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "capital iota")},
    {u'Κ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "capital kappa")},
    {u'Λ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "capital lambda")},
    {u'Μ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "capital mu")},
    {u'Ν', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "capital nu")},
    {u'Ξ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "capital xi")},
    {u'Ο', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "capital omicron")},
    {u'Π', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "capital pi")},
    {u'Ρ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "capital rho")},
    {u'Σ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "capital sigma")},
    {u'Τ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "capital tau")},
    {u'Υ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "capital upsilon")},
    {u'Φ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "capital phi")},
    {u'Χ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "capital chi")},
    {u'Ψ', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "capital psi")},
    {u'Ω', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "capital omega")},
    {u'±', QT_TRANSLATE_NOOP("TXGreekLetterPanel", "plus-minus, for a tolerance")},
}};

}  // namespace

std::span<const NamedCharacter> greekLetters() { return letters; }
