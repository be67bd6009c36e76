// Placeholder: no sources yet.
namespace alm {}
