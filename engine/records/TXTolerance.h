#pragma once

/// How far an operand may deviate from its value. Copied whole.
struct _TXTolerance {
    double plusTol = 0.0;   ///< The allowed deviation upwards.
    double minusTol = 0.0;  ///< The allowed deviation downwards.

    bool operator==(const _TXTolerance&) const = default;
};
