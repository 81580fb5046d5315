#pragma once

#include <cstddef>

/// What the page does for the program: the functions that page/program.js hands to the module. Texts are
/// UTF-8 bytes and their number. A text that a function gives back lies in the incoming bytes
/// (IncomingBytes.h), and the function returns how many they are. Lengths are in points, times in seconds.
extern "C" {

double pageNow();
double pageWallTime();
/// wake() is to be called at this moment of pageNow(). Replaces what was asked for before.
void pageWakeAt(double time);

void pageWriteLine(const char* text, std::size_t length);

double pageWidth();
double pageHeight();
/// Device pixels per point.
double pageScale();
bool pageReducesMotion();
/// frame() is to be called in time for the next one.
void pageRequestFrame();
/// What CommandBuffer holds.
void pagePaint(const double* words, std::size_t count);

/// Into `result`: width, height, and 1 when the text reads from the right, else 0. One line when the
/// width to wrap at is 0.
void pageMeasure(const char* text, std::size_t length, const char* family, std::size_t familyLength,
    double size, bool bold, double wrapWidth, double* result);
/// A number for the picture, and its size in pixels into `size`; 0 when the bytes are none.
int pageDecodeImage(const char* bytes, std::size_t length, double* size);
void pageReleaseImage(int image);

/// The text's colour as in CommandBuffer. Alignments are those of CGTextAlignment, in their order. A tap that
/// is nowhere is not a number.
void pageBeginEditing(const char* text, std::size_t length, const char* label, std::size_t labelLength,
    const char* family, std::size_t familyLength, double size, bool bold, double color, int alignment,
    bool multiline, bool darkKeyboard, bool doneKey, double tapX, double tapY, double scrolled);
void pagePlaceEditor(double x, double y, double width, double height, double clipX, double clipY,
    double clipWidth, double clipHeight, double opacity);
double pageEditorScrolled();
/// The text when it was not told yet, otherwise -1.
long pageEndEditing();

bool pageFileExists(const char* path, std::size_t length);
/// -1 when it cannot be read.
long pageReadFile(const char* path, std::size_t length);
/// fileReplaced() is called with this number when it is known what became of it.
void pageReplaceFile(const char* path, std::size_t length, const char* bytes, std::size_t size, int number);
void pageSetFileAside(const char* path, std::size_t length);

/// Language tags with a line break between them.
std::size_t pageLanguages();
std::size_t pageMediumDate(double wallTime);

void pagePlaySound(const char* path, std::size_t length);
void pageVibrate();
void pageAnnounce(const char* text, std::size_t length);
void pageSetBadge(double number);
bool pageOpenAddress(const char* address, std::size_t length);
/// Model, name, system and version with a line break between them.
std::size_t pageDevice();
/// permissionAnswered() is called when the answer is there.
void pageRequestPermission();

/// listShared() is called when it is known what came of it.
void pageShare(const char* text, std::size_t length);
void pageSaveDocument(const char* name, std::size_t length, const char* bytes, std::size_t size);
/// documentOpened() or documentNotOpened() is called, or neither.
void pageOpenDocument();
}
