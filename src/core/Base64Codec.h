// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The vault's Base64 codec. Standard alphabet and bit order, but no padding on output, a line
// break after every 64 output characters, white space ignored on input, and the decoded
// padding left in the result as characters of code 0. Texts are code-page bytes.
#include <QByteArray>

#include <functional>

QByteArray Encode64(const QByteArray& text);
QByteArray Decode64(const QByteArray& text);
QByteArray EncodeTriple(const QByteArray& three);
QByteArray DecodeQuad(const QByteArray& four);
char SextetChar(int value);
int SextetValue(char c);
bool CheckBase64(const QByteArray& text, bool showMessages);
QByteArray StripBlanks(const QByteArray& text);

// What Decode64 does with a group of four it can't read: by default it asks the
// "PROGRAM ERROR" box (OK goes on with "???", Cancel stops). The tool replaces the question.
// Returns true to go on.
using BadGroupHandler = std::function<bool(const QByteArray& four)>;
void SetBadGroupHandler(BadGroupHandler handler);
