# Starts almread, sends one request frame per argument ("type,id,arg,..."),
# closes its input and prints each reply: id, count, data type and size (the
# home's path counted as "$HOME"), then the strings of a string reply or the
# digest of a record reply, then the server's exit status.
use strict;
use warnings;
use Digest::MD5 qw(md5_hex);
use IPC::Open2;

my $pid = open2(my $out, my $in, "almread");
for (@ARGV) {
    my ($type, $id, @args) = split /,/, $_, -1;
    my $area = join "", map { "$_\0" } @args;
    print $in pack("N6", 20 + length $area, $type, $id, scalar @args, 0, 0), $area;
}
close $in;
my ($greeting, $size, $rest);
read $out, $greeting, 13;
while (read $out, $size, 4) {
    $size = unpack "N", $size;
    read $out, $rest, $size;
    my (undef, $id, $count, $kind) = unpack "N4", $rest;
    (my $body = substr $rest, 20) =~ s/\Q$ENV{HOME}\E/\$HOME/g;
    print "reply $id: $count items of kind $kind, size 20 + ", length $body;
    print $kind == 0 ? ("\n", map { "  $_\n" } split /\0/, $body) : (", md5 ", substr(md5_hex($body), 0, 8), "\n");
}
waitpid $pid, 0;
print "exit ", $? >> 8, "\n";
