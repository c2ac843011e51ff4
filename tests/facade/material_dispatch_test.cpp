// The material, multi-material and blend-table ids: each reaches its preset
// through its own overload, leaves alpha, materials and tables alone, and is
// safe on 0 x 0 and 1 x 1 images.
#include <gtest/gtest.h>

#include <utility>

#include <qtzqeffect/qtzqeffect.h>

#include "support/images.h"

using qtzq_test::Bytes;
using qtzq_test::noise;

namespace {

using Uc = unsigned char;
using OneMaterial = void (*)(Uc*, Uc*, int, int);
using TwoMaterials = void (*)(Uc*, Uc*, Uc*, int, int);
using ThreeMaterials = void (*)(Uc*, Uc*, Uc*, Uc*, int, int);
using Tables = void (*)(Uc*, Uc*, Uc*, int, int, Uc*);

struct Inputs {
    int w, h;
    Bytes photo = noise(w, h, 71), m1 = noise(w, h, 72), m2 = noise(w, h, 73), m3 = noise(w, h, 74),
          tables = noise(256, 193, 75);  // more than a set's 196618 bytes
};

// The overload of each preset type, and the direct call.
int facade(int id, Inputs& in, OneMaterial) {
    return Qtzqeffect().effect(id, in.photo.data(), in.m1.data(), in.w, in.h);
}
int facade(int id, Inputs& in, TwoMaterials) {
    return Qtzqeffect().effect(id, in.photo.data(), in.m1.data(), in.m2.data(), in.w, in.h);
}
int facade(int id, Inputs& in, ThreeMaterials) {
    Qtzqeffect().effect(id, in.photo.data(), in.m1.data(), in.m2.data(), in.m3.data(), in.w, in.h);
    return 1;  // for 1048 this overload's result carries no meaning
}
int facade(int id, Inputs& in, Tables) {
    return Qtzqeffect().effect(id, in.photo.data(), in.m1.data(), in.m2.data(), in.w, in.h,
                               in.tables.data(), 99);
}
void direct(OneMaterial p, Inputs& in) { p(in.photo.data(), in.m1.data(), in.w, in.h); }
void direct(TwoMaterials p, Inputs& in) {
    p(in.photo.data(), in.m1.data(), in.m2.data(), in.w, in.h);
}
void direct(ThreeMaterials p, Inputs& in) {
    p(in.photo.data(), in.m1.data(), in.m2.data(), in.m3.data(), in.w, in.h);
}
void direct(Tables p, Inputs& in) {
    p(in.photo.data(), in.m1.data(), in.m2.data(), in.w, in.h, in.tables.data());
}

template <typename Preset>
void expect_dispatch(int id, Preset preset) {
    for (const auto& [w, h] : {std::pair{9, 7}, std::pair{1, 1}, std::pair{0, 0}}) {
        Inputs via_facade{w, h}, via_call{w, h};
        const Inputs original{w, h};
        EXPECT_EQ(facade(id, via_facade, preset), 1) << id;
        direct(preset, via_call);
        EXPECT_EQ(via_facade.photo, via_call.photo) << id;
        if (w > 1) {
            EXPECT_NE(via_facade.photo, original.photo) << id;
        }
        for (std::size_t i = 3; i < original.photo.size(); i += 4)
            EXPECT_EQ(via_facade.photo[i], original.photo[i]) << id << " changed alpha";
        EXPECT_TRUE(via_facade.m1 == original.m1 && via_facade.m2 == original.m2 &&
                    via_facade.m3 == original.m3 && via_facade.tables == original.tables)
            << id << " wrote an input";
        // The single-image overload does not know the id.
        EXPECT_EQ(Qtzqeffect().effect(id, via_call.photo.data(), w, h), 1);
        EXPECT_EQ(via_call.photo, via_facade.photo) << id;
    }
}

TEST(MaterialDispatch, EveryIdReachesItsPresetThroughItsOverloadOnly) {
    expect_dispatch(1030, StyleBrightRed);
    expect_dispatch(1042, StyleLomoChristmas);
    expect_dispatch(1043, StyleLomoSnow);
    expect_dispatch(1044, StyleLomoNight);
    expect_dispatch(1045, StyleLomoHalo);
    expect_dispatch(1046, StyleLomoStar);
    expect_dispatch(1047, StyleReverse);
    expect_dispatch(1018, StyleJinDian);
    expect_dispatch(1041, StyleWarm);
    expect_dispatch(1048, StyleFenHongJiaRen);
    expect_dispatch(1031, StyleNiuPiZhi);
    expect_dispatch(1032, StyleXuanCai);
    expect_dispatch(1038, StyleFanHuang);
}

}  // namespace
