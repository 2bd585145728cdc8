-- A queue of up to CAPACITY elements of any type, for test benches.
package queue_pkg is
    generic (
        type element_t;
        CAPACITY : positive
    );

    type element_vector is array (0 to CAPACITY - 1) of element_t;
    type queue_t is record
        items : element_vector;
        first : natural;
        count : natural;
    end record;

    procedure clear(queue : inout queue_t);
    procedure push(queue : inout queue_t; item : in element_t);
    procedure pop(queue : inout queue_t; item : out element_t);
end package queue_pkg;

package body queue_pkg is
    procedure clear(queue : inout queue_t) is
    begin
        queue.first := 0;
        queue.count := 0;
    end procedure;

    procedure push(queue : inout queue_t; item : in element_t) is
    begin
        assert queue.count < CAPACITY report "the queue is full" severity failure;
        queue.items((queue.first + queue.count) mod CAPACITY) := item;
        queue.count := queue.count + 1;
    end procedure;

    procedure pop(queue : inout queue_t; item : out element_t) is
    begin
        assert queue.count > 0 report "the queue is empty" severity failure;
        item        := queue.items(queue.first);
        queue.first := (queue.first + 1) mod CAPACITY;
        queue.count := queue.count - 1;
    end procedure;
end package body queue_pkg;
