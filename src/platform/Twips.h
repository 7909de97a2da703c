#pragma once
// Sizes and positions of controls are twips: 15 to a pixel at 96 dpi, the one conversion.
inline int Twips(int twips)
{
    return (twips + 7) / 15;
}
