#include <cimxml/load/Metrics.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace cimxml {
namespace {

using testing::HasSubstr;

TEST(Metrics, Text_IsOpenMetrics) {
    Metrics metrics;
    metrics.CountRequest(200);
    metrics.CountRequest(200);
    metrics.CountRequest(401);
    metrics.CountRequest(1000);
    metrics.connections = 3;
    const std::string text = metrics.Text("1.2.3", 7);
    EXPECT_THAT(text, HasSubstr("# TYPE bmci2c_build info\n"));
    EXPECT_THAT(text, HasSubstr("\nbmci2c_build_info{version=\"1.2.3\"} 1\n"));
    EXPECT_THAT(text, HasSubstr("# TYPE bmci2c_connections gauge\n"));
    EXPECT_THAT(text, HasSubstr("\nbmci2c_connections 3\n"));
    EXPECT_THAT(text, HasSubstr("# TYPE bmci2c_requests counter\n"));
    EXPECT_THAT(text, HasSubstr("\nbmci2c_requests_total{status=\"200\"} 2\n"
                                "bmci2c_requests_total{status=\"401\"} 1\n#"));
    EXPECT_THAT(text, HasSubstr("\nbmci2c_log_lines_lost_total 7\n"));
    EXPECT_TRUE(text.ends_with("\n# EOF\n"));
}

}  // namespace
}  // namespace cimxml
