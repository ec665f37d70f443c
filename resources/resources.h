#pragma once

/// Makes the built-in pictures (":/bmp/...", ":/Icon.ico") and the translation (":/lang/Kronalys_en.qm")
/// known to Qt. A static library's resources stay out of the program unless something asks for them. May be
/// called again.
void initResources();
