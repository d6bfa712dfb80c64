// The compiler writes a descriptor of each class with run-time type information, and expects the
// table of virtual functions of the descriptors' own class to be somewhere: where its constructor
// is.

class type_info {
 public:
  type_info();
  type_info(const type_info&) = delete;
  type_info& operator=(const type_info&) = delete;
  virtual ~type_info();
};

type_info::type_info() = default;
type_info::~type_info() = default;
