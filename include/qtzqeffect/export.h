// Symbol export control for libQtzqeffect.
//
// The library is built with hidden visibility by default; QTZQ_API marks the
// functions and classes that make up its public surface. Applications see it
// as a no-op apart from the attribute.
#ifndef QTZQEFFECT_EXPORT_H
#define QTZQEFFECT_EXPORT_H

#if defined(QTZQ_STATIC)
#define QTZQ_API
#elif defined(_WIN32)
#if defined(QTZQ_BUILDING_LIBRARY)
#define QTZQ_API __declspec(dllexport)
#else
#define QTZQ_API __declspec(dllimport)
#endif
#else
#define QTZQ_API __attribute__((visibility("default")))
#endif

#endif  // QTZQEFFECT_EXPORT_H
