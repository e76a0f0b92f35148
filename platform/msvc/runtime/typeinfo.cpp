// The table of virtual operations that each record of a type starts with.
class type_info
{
public:
    constexpr type_info() = default;
    virtual ~type_info();
    void* spare = nullptr;
    char name[1] = {};
};

type_info::~type_info() {}

// Has the compiler lay out the table.
[[clang::no_destroy]] constinit type_info s_anchor;
