// Ground for the query suites that talk to a server: plans built once per
// suite in a directory of their own, and for each test a fresh server with
// the suite's main plan open.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "queries/plantest.h"

namespace alm::qtest {

class PlanSession : public ::testing::Test {
protected:
    // For SetUpTestSuite: builds the plan NAME from desc into path; a plan
    // almplan refuses fails the suite with its complaint.
    static void buildSuitePlan(std::string& path, const std::string& name, const std::string& desc, bool v1 = false) {
        if (!dir_) dir_ = std::make_unique<TempDir>();
        std::string err;
        path = buildPlan(dir_->path(), name, desc, &err, v1);
        ASSERT_FALSE(path.empty()) << err;
    }
    static void TearDownTestSuite() {
        dir_.reset();
        plan_.clear();
        v1_.clear();
    }

    void SetUp() override {
        ASSERT_FALSE(plan_.empty());
        ASSERT_TRUE(server_.ok());
        handle_ = server_.open(plan_);
        ASSERT_FALSE(handle_.empty());
    }
    // The server must end cleanly after every test, leak checks included.
    void TearDown() override {
        std::string err;
        EXPECT_EQ(server_.finish(&err), 0) << err;
    }

    // Shared by the suites, one suite at a time: each builds its own.
    inline static std::unique_ptr<TempDir> dir_;
    inline static std::string plan_;  // open as handle_ in every test
    inline static std::string v1_;    // a version 1 plan, in suites that need one
    Server server_;
    std::string handle_;
};

}  // namespace alm::qtest
