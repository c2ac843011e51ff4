// OpenCV doing the nearest thing it has to a library benchmark, on the same
// photo in the same process, single-threaded: a reference for what a
// mature, vectorised implementation of each kind of pass costs here.
#include "suites.h"

#if QTZQ_BENCH_OPENCV

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include <string>

#include "bench_image.h"
#include "timed_pass.h"

namespace qtzq_bench {
namespace {

cv::Mat as_mat(BgraImage& photo) { return cv::Mat(photo.height, photo.width, CV_8UC4, photo.data()); }

void lookup_tables(BgraImage& photo) {
    static const cv::Mat table = [] {
        cv::Mat t(1, 256, CV_8UC4);
        for (int i = 0; i < 256; ++i)
            t.at<cv::Vec4b>(i) = cv::Vec4b(uchar(255 - i), uchar(255 - i), uchar(255 - i), uchar(i));
        return t;
    }();
    cv::Mat image = as_mat(photo);
    cv::LUT(image, table, image);
}

// The sigma CreateBlurEffect uses for a radius.
double sigma_for_radius(int radius) { return (radius + 1.3) / 3.329; }

void add_gaussian(int radius) {
    add_pass("opencv/GaussianBlur/r" + std::to_string(radius), [radius](BgraImage& photo) {
        cv::Mat image = as_mat(photo);
        const double sigma = sigma_for_radius(radius);
        cv::GaussianBlur(image, image, cv::Size(), sigma, sigma, cv::BORDER_REPLICATE);
    });
}

// BGRA to a three-channel space and back to BGRA.
void add_round_trip(const char* space, int to, int back) {
    add_pass(std::string("opencv/cvtColor/") + space, [to, back](BgraImage& photo) {
        cv::Mat image = as_mat(photo);
        cv::Mat converted;
        cv::cvtColor(image, converted, to);
        cv::cvtColor(converted, image, back, 4);
    });
}

void cross_fade(BgraImage& photo) {
    static BgraImage layer = bench_image().image;
    cv::Mat image = as_mat(photo);
    cv::addWeighted(image, 0.3, as_mat(layer), 0.7, 0.0, image);
}

}  // namespace

void register_opencv_anchors() {
    cv::setNumThreads(1);
    add_pass("opencv/LUT", lookup_tables);
    for (int radius : kBlurRadii) add_gaussian(radius);
    add_round_trip("YUV", cv::COLOR_BGR2YUV, cv::COLOR_YUV2BGR);
    add_round_trip("XYZ", cv::COLOR_BGR2XYZ, cv::COLOR_XYZ2BGR);
    add_round_trip("HLS", cv::COLOR_BGR2HLS, cv::COLOR_HLS2BGR);
    add_round_trip("HSV", cv::COLOR_BGR2HSV, cv::COLOR_HSV2BGR);
    add_pass("opencv/addWeighted", cross_fade);
}

}  // namespace qtzq_bench

#else

namespace qtzq_bench {
void register_opencv_anchors() {}
}  // namespace qtzq_bench

#endif
