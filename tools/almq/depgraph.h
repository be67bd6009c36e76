// The dependency reply as a Graphviz digraph: schedules and jobs grouped by
// workstation (and each schedule's jobs by schedule), prompts, files and
// resources as nodes of their own shapes, and an edge from each thing
// waited on to what waits for it, labelled with the kind of dependency.
#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "deptree.h"
#include "wirerecord.h"

namespace alm {

class DepGraph {
public:
    DepGraph();
    // Takes each record of the reply in order, with its place in the tree.
    void add(const DepNode& node, const unsigned char* rec);
    // Appends the whole digraph.
    void render(std::string& out) const;

private:
    struct Node {
        std::string id;
        std::string attrs;  // shape and label, as DOT attributes
    };
    struct Workstation {
        std::map<std::string, std::vector<Node>> schedules;  // each schedule's own node and its jobs
        std::vector<Node> others;                            // files and resources
    };

    // The node a record stands for (declared once); its id. A local prompt
    // is its owner's own, apart from a global prompt of the same name.
    std::string nodeOf(const DepNode& node, const unsigned char* rec, const std::string& owner);
    std::string scheduleNode(const unsigned char* rec);
    std::string jobNode(const unsigned char* rec);
    std::string dependencyNode(const DepNode& node, const std::string& owner, const unsigned char* rec);
    void declare(std::vector<Node>& group, std::string id, std::string attrs);
    void edge(const std::string& from, const std::string& to, const std::string& attrs);

    std::map<std::string, Workstation> workstations_;
    std::vector<Node> prompts_;
    std::map<std::string, bool> declared_;
    std::vector<std::string> ids_;  // the node of each record so far, by index
    std::string edges_;
    std::set<std::string> drawn_;  // the edges in edges_
    std::string lastLink_;         // the job or restart link last seen
    WireField ssCpu_, ssName_, ssStatus_;
    WireField sjCpu_, sjSched_, sjName_, sjStatus_;
    WireField smName_, smMessage_;
    WireField sfCpu_, sfName_;
    WireField srCpu_, srName_, srAvail_, srUsed_;
};

}  // namespace alm
