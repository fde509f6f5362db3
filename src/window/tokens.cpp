#include "window/tokens.h"

namespace commtest {

const Tokens kLightTokens = {
    .window = 0xF3F5F6,
    .surface = 0xFFFFFF,
    .zebra = 0xF8FAFB,
    .header = 0xEBEFF1,
    .hover = 0xE4EAED,
    .row = 0xE8F2F6,
    .tint = 0xDDEFF4,
    .edit = 0xF1F8FA,
    .flash = 0xB9E2EE,
    .line = 0xDAE1E5,
    .border = 0x808F99,
    .text = 0x17232B,
    .text2 = 0x4F5F69,
    .disabled = 0x8E9BA3,
    .accent = 0x0B6B88,
    .accentHover = 0x095A73,
    .onAccent = 0xFFFFFF,
    .warn = 0xB42318,
    .warnTint = 0xFCE4E1,
    .ink = 0x44545E,
    .scroll = 0xB4C0C7,
};

const Tokens kDarkTokens = {
    .window = 0x1C2328,
    .surface = 0x13191D,
    .zebra = 0x171E22,
    .header = 0x242D33,
    .hover = 0x2B353C,
    .row = 0x20363F,
    .tint = 0x143B48,
    .edit = 0x172930,
    .flash = 0x1B5A6E,
    .line = 0x303B42,
    .border = 0x6F8089,
    .text = 0xE2E9ED,
    .text2 = 0xA2B2BB,
    .disabled = 0x6C7A83,
    .accent = 0x5CC3E0,
    .accentHover = 0x7DD2EA,
    .onAccent = 0x06222C,
    .warn = 0xFF9A92,
    .warnTint = 0x4A2320,
    .ink = 0xB7C5CD,
    .scroll = 0x4A575F,
};

}  // namespace commtest
